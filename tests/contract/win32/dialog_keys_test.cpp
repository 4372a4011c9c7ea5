// Who has the keyboard while a dialog is open, and what stands in an input box.
#include <gtest/gtest.h>

#include <thread>

#include "tests/contract/win32/patience.h"
#include "tests/contract/win32/win_world.h"
#include "win32/foreground.h"

namespace pointalk::contract {
namespace {

constexpr int kTicksBesideABox = 320;  // of 30 ms: about ten seconds

template <typename Condition> bool WaitFor(Condition condition, ULONGLONG limit = kPatience) {
  for (const ULONGLONG end = GetTickCount64() + limit; GetTickCount64() < end; Sleep(2))
    if (condition()) return true;
  return false;
}

class DialogKeysTest : public ::testing::Test {
 protected:
  void BringOtherProgramToTheFront() {
    world_.Tell("foreground front");
    const HWND front = win32::ToWindow(world_.Window("front"));
    ASSERT_TRUE(world_.RunUntil([&] { return GetForegroundWindow() == front; }, kPatience));
  }

  WinWorld world_{{{{"front", u"ContractFront", u"Front", {100, 100, 500, 400}}}}};
  Dialogs& dialogs_ = world_.platform.dialogs;
};

TEST_F(DialogKeysTest, ABoxGetsTheKeysThoughAnotherProgramIsInFront) {
  world_.platform.panel.Minimise();
  BringOtherProgramToTheFront();
  world_.AnswerBox(kAnswerYes);
  EXPECT_EQ(dialogs_.AskByBox(u"Do you agree?", u"Pointalk", kBoxYesNo), kAnswerYes);
}

TEST_F(DialogKeysTest, AnInputBoxGetsTheKeysThoughAnotherProgramIsInFront) {
  world_.platform.panel.Minimise();
  BringOtherProgramToTheFront();
  world_.AnswerInput(u"7");
  EXPECT_EQ(dialogs_.AskByInput(u"Which?", u"Pointalk", u"100"), u"7");
}

// The system counts a key that was pressed while nobody asked.
TEST_F(DialogKeysTest, AKeyThatNoKeyboardHasClaimsTheFrontForABox) {
  constexpr int kUnassigned = 0xE8;
  GetAsyncKeyState(kUnassigned);
  world_.AnswerBox(kAnswerOk);
  EXPECT_EQ(dialogs_.AskByBox(u"One.", u"Pointalk", kBoxOk), kAnswerOk);
  EXPECT_EQ(GetAsyncKeyState(kUnassigned), 1);
}

TEST_F(DialogKeysTest, ABoxThatIsNotInFrontIsBroughtThereAMomentLater) {
  BringOtherProgramToTheFront();
  const HWND box = CreateWindowExW(0, MAKEINTRESOURCEW(32770), L"Box", WS_POPUP | WS_CAPTION, 200, 200, 200,
                                   100, nullptr, nullptr, nullptr, nullptr);
  ShowWindow(box, SW_SHOWNOACTIVATE);
  ASSERT_NE(GetForegroundWindow(), box);
  {
    const win32::BoxInFront front(world_.platform.panel.Window());
    EXPECT_TRUE(world_.RunUntil([&] { return GetForegroundWindow() == box; }, kPatience));
  }
  DestroyWindow(box);
}

// It takes the front within the box's first moment, which may need a few attempts on a busy machine.
TEST_F(DialogKeysTest, AnotherProgramDoesNotKeepAQuestionFromTheFront) {
  const HWND front = win32::ToWindow(world_.Window("front"));
  bool regained = false;
  for (int attempt = 0; attempt < 5 && !regained; ++attempt) {
    std::thread thief([&] {
      WaitFor([] { return OwnDialog() != nullptr; });
      const HWND box = OwnDialog();
      WaitFor([&] { return GetForegroundWindow() == box; });
      world_.Tell("foreground front");
      const bool stolen = WaitFor([&] { return GetForegroundWindow() == front; });
      regained = stolen && WaitFor([&] { return GetForegroundWindow() == box; }, 3'000);
      PostMessageW(box, WM_COMMAND, IDYES, 0);
    });
    EXPECT_EQ(dialogs_.AskByBox(u"Do you agree?", u"Pointalk", kBoxYesNo), kAnswerYes);
    thief.join();
  }
  EXPECT_TRUE(regained);
}

TEST_F(DialogKeysTest, EnterAloneTakesTheProposal) {
  world_.AnswerInput(u"");
  EXPECT_EQ(dialogs_.AskByInput(u"Which?", u"Pointalk", u"a proposal"), u"a proposal");
}

TEST_F(DialogKeysTest, TheProposalCanBeAddedTo) {
  world_.answers.Type({VK_END, '2', VK_RETURN});
  EXPECT_EQ(dialogs_.AskByInput(u"Which?", u"Pointalk", u"1"), u"12");
}

TEST_F(DialogKeysTest, TabReachesTheButtons) {
  world_.answers.Type({VK_TAB, VK_TAB, VK_SPACE});
  EXPECT_EQ(dialogs_.AskByInput(u"Which?", u"Pointalk", u"1"), u"");
}

TEST_F(DialogKeysTest, TheFormHearsTheMouseWhileABoxIsOpen) {
  world_.MovePointer({150, 150});
  ASSERT_TRUE(world_.platform.input.ReportMouse(true));
  std::thread mouse([&] {
    for (const ULONGLONG end = GetTickCount64() + kPatience;
         OwnDialog() == nullptr && GetTickCount64() < end;)
      Sleep(10);
    world_.SetLeftButton(true);
    world_.SetLeftButton(false);
  });
  world_.duringTick = [&] {
    if (world_.mouseReports.size() >= 2 || world_.ticks >= kTicksBesideABox)
      PostMessageW(OwnDialog(), WM_COMMAND, IDOK, 0);
  };
  world_.platform.panel.SetTimerEnabled(true);
  EXPECT_EQ(dialogs_.AskByBox(u"Wait.", u"Pointalk", kBoxOk), kAnswerOk);
  mouse.join();
  EXPECT_EQ(world_.mouseReports.size(), 2U);
}

// The prompt is the label before the edit, whole and unabridged, and everything is inside the window.
TEST_F(DialogKeysTest, ALongPromptIsWrappedAndNamesTheEdit) {
  Text prompt;
  for (int i = 0; i < 40; ++i) prompt += u"Horizontal & vertical volume. ";
  std::wstring label;
  LONG labelHeight = 0;
  bool buttonInside = false;
  std::thread looker([&] {
    HWND box = nullptr;
    for (const ULONGLONG end = GetTickCount64() + kPatience; box == nullptr && GetTickCount64() < end;
         Sleep(50))
      box = OwnDialog();
    Sleep(300);
    const HWND edit = FindWindowExW(box, nullptr, L"Edit", nullptr);
    const HWND before = GetWindow(edit, GW_HWNDPREV);
    label.resize(4096);
    label.resize(static_cast<std::size_t>(GetWindowTextW(before, label.data(), 4096)));
    RECT place{}, button{}, inside{};
    GetWindowRect(before, &place);
    labelHeight = place.bottom - place.top;
    GetWindowRect(GetDlgItem(box, IDOK), &button);
    GetClientRect(box, &inside);
    MapWindowPoints(box, nullptr, reinterpret_cast<POINT*>(&inside), 2);
    buttonInside =
        button.bottom <= inside.bottom && button.right <= inside.right && button.top > place.bottom;
    PostMessageW(box, WM_COMMAND, IDCANCEL, 0);
  });
  EXPECT_EQ(dialogs_.AskByInput(prompt, u"Pointalk", u"1"), u"");
  looker.join();
  EXPECT_EQ(win32::FromWide(label), prompt);
  EXPECT_GT(labelHeight, 60);
  EXPECT_TRUE(buttonInside);
}

}  // namespace
}  // namespace pointalk::contract
