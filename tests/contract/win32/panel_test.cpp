// The control panel's window: what it shows, its keys, its timer, and what it tells the form.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <functional>
#include <thread>
#include <utility>
#include <vector>

#include "app/mouse.h"
#include "tests/contract/win32/patience.h"
#include "tests/contract/win32/win_world.h"
#include "win32/panel_commands.h"

namespace pointalk::contract {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr int kTicksInALongWhile = 320;  // of 30 ms: about ten seconds

class PanelTest : public ::testing::Test {
 protected:
  void Show() {
    ShowWindow(panel_, SW_SHOWNORMAL);
    SetForegroundWindow(panel_);
    ASSERT_TRUE(
        world_.RunUntil([&] { return GetForegroundWindow() == panel_ && GetFocus() != nullptr; }, kPatience));
    world_.RunUntil([] { return false; }, 300);
  }

  void Press(std::initializer_list<int> keys) {
    for (const int key : keys) PressKey(key, true);
    for (auto key = std::rbegin(keys); key != std::rend(keys); ++key) PressKey(*key, false);
  }

  // Presses a key in the middle of a tick, which lets messages run then.
  bool LetRunWith(int key) {
    Press({key});
    seam_.LetMessagesRun();
    return true;
  }

  // Takes one step each tick, again and again until it is done; gives up by closing what is open.
  void DuringTicks(std::vector<std::function<bool()>> steps) {
    world_.duringTick = [this, steps = std::move(steps), step = std::size_t{0}, busy = false]() mutable {
      if (busy || step == steps.size()) return;
      busy = true;  // a step that lets messages run lets ticks in
      if (steps[step]()) ++step;
      busy = false;
      if (world_.ticks < kTicksInALongWhile) return;
      EndMenu();
      PostMessageW(OwnDialog(), WM_CLOSE, 0, 0);
    };
    seam_.SetTimerEnabled(true);
  }

  static bool InMenu() {
    GUITHREADINFO thread{};
    thread.cbSize = sizeof thread;
    return GetGUIThreadInfo(GetCurrentThreadId(), &thread) != FALSE && (thread.flags & GUI_INMENUMODE) != 0;
  }

  bool HeardCommands(std::size_t count) {
    return world_.RunUntil([&] { return world_.commands.size() >= count; }, kPatience);
  }

  std::vector<HWND> Children() const {
    std::vector<HWND> children;
    for (HWND child = GetWindow(panel_, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT))
      children.push_back(child);
    return children;
  }

  static std::wstring TextOf(HWND window) {
    wchar_t text[256] = {};
    GetWindowTextW(window, text, 256);
    return text;
  }

  WinWorld world_{{}};
  win32::WinPanel& seam_ = world_.platform.panel;
  HWND panel_ = seam_.Window();
};

TEST_F(PanelTest, ItShowsTheTablesMenu) {
  EXPECT_EQ(TextOf(panel_), L"Pointalk Control Center");
  const HMENU bar = GetMenu(panel_);
  ASSERT_EQ(GetMenuItemCount(bar), 6);
  wchar_t text[64] = {};
  GetMenuStringW(bar, 5, text, 64, MF_BYPOSITION);
  EXPECT_STREQ(text, L"&TroubleShooting");
  GetMenuStringW(GetSubMenu(bar, 0), 0, text, 64, MF_BYPOSITION);
  EXPECT_STREQ(text, L"&Minimize Control Panel ");
  GetMenuStringW(GetSubMenu(bar, 2), 6, text, 64, MF_BYPOSITION);
  EXPECT_STREQ(text, L"Mute Voice\tCtrl+M");
  GetMenuStringW(GetSubMenu(bar, 3), 0, text, 64, MF_BYPOSITION);
  EXPECT_STREQ(text, L"Instructions\tF1");
}

TEST_F(PanelTest, ItShowsTheButtonsTheLabelAndThePicture) {
  const std::vector<HWND> children = Children();
  ASSERT_EQ(children.size(), PanelButtons().size() + 2);
  std::size_t index = 0;
  for (const PanelButton& button : PanelButtons())
    EXPECT_EQ(win32::FromWide(TextOf(children[index++])), button.caption);
  EXPECT_EQ(win32::FromWide(TextOf(children[index])),
            u"Copyright Corvane.  You may use it and pass it on, unchanged and free of charge.  ");
}

TEST_F(PanelTest, NothingInItOverlapsOrSticksOut) {
  Show();
  RECT inside{};
  GetClientRect(panel_, &inside);
  MapWindowPoints(panel_, nullptr, reinterpret_cast<POINT*>(&inside), 2);
  const std::vector<HWND> children = Children();
  for (const HWND one : children) {
    RECT place{};
    GetWindowRect(one, &place);
    EXPECT_GE(place.left, inside.left);
    EXPECT_GE(place.top, inside.top);
    EXPECT_LE(place.right, inside.right);
    EXPECT_LE(place.bottom, inside.bottom);
    for (const HWND other : children) {
      RECT otherPlace{}, common{};
      GetWindowRect(other, &otherPlace);
      EXPECT_TRUE(one == other || !IntersectRect(&common, &place, &otherPlace));
    }
  }
}

TEST_F(PanelTest, ItComesUpAtTheTopLeft) {
  Show();
  RECT place{};
  GetWindowRect(panel_, &place);
  EXPECT_EQ(place.left, 0);
  EXPECT_EQ(place.top, 0);
}

TEST_F(PanelTest, ItsShortcutsRunTheirCommands) {
  Show();
  Press({VK_F1});
  Press({VK_F11});
  Press({VK_F12});
  Press({VK_CONTROL, 'M'});
  EXPECT_TRUE(HeardCommands(4));
  EXPECT_THAT(world_.commands, ElementsAre(&Mouse::mnuHelpInstructions_Click, &Mouse::mnuVoiceSlowDown_Click,
                                           &Mouse::mnuVoiceSpeedUp_Click, &Mouse::mnuVoiceMute_Click));
}

TEST_F(PanelTest, ItsButtonsAreReachedAndPressedByKeys) {
  Show();
  Press({VK_SPACE});
  EXPECT_TRUE(HeardCommands(1));
  Press({VK_TAB});
  Press({VK_TAB});
  Press({VK_RETURN});
  EXPECT_TRUE(HeardCommands(2));
  Press({VK_SHIFT, VK_TAB});
  Press({VK_SPACE});
  EXPECT_TRUE(HeardCommands(3));
  EXPECT_THAT(world_.commands,
              ElementsAre(&Mouse::cmdVoiceSam_Click, &Mouse::cmdVoiceMary_Click, &Mouse::cmdVoiceMike_Click));
}

TEST_F(PanelTest, ItsMenusAreReachedByKeys) {
  Show();
  Press({VK_MENU, 'F'});
  Press({'X'});
  EXPECT_TRUE(HeardCommands(1));
  EXPECT_THAT(world_.commands, ElementsAre(&Mouse::mnuFileExit_Click));
}

// A tick lets messages run when the tones end, whatever loop it came in.
TEST_F(PanelTest, KeysThatComeDuringATickReachTheOpenMenu) {
  Show();
  DuringTicks({[] { return InMenu(); }, [this] { return LetRunWith(VK_DOWN); },
               [this] { return Press({VK_RETURN}), true; }});
  PostMessageW(panel_, WM_SYSCOMMAND, SC_KEYMENU, 'f');
  EXPECT_TRUE(HeardCommands(1));
  EXPECT_THAT(world_.commands, ElementsAre(&Mouse::mnuFileExit_Click)) << "the second entry";
}

TEST_F(PanelTest, KeysThatComeDuringATickReachTheOpenBox) {
  Show();
  DuringTicks({[] { return OwnDialog() != nullptr && GetForegroundWindow() == OwnDialog(); },
               [this] { return LetRunWith(VK_TAB); }, [this] { return LetRunWith(VK_RETURN); },
               [] { return PostMessageW(OwnDialog(), WM_COMMAND, IDYES, 0), true; }});
  EXPECT_EQ(world_.platform.dialogs.AskByBox(u"Go on?", u"Pointalk", kBoxYesNo), kAnswerNo);
}

TEST_F(PanelTest, TheTimerTicksWhileItIsSwitchedOn) {
  seam_.LetMessagesRun();
  EXPECT_FALSE(world_.RunUntil([&] { return world_.ticks > 0; }, 200));
  seam_.SetTimerEnabled(true);
  EXPECT_TRUE(world_.RunUntil([&] { return world_.ticks >= 5; }, kPatience));
  seam_.SetTimerEnabled(false);
  const int before = world_.ticks;
  EXPECT_FALSE(world_.RunUntil([&] { return world_.ticks > before; }, 200));
  seam_.SetTimerEnabled(true);
  EXPECT_TRUE(world_.RunUntil([&] { return world_.ticks > before; }, kPatience));
}

TEST_F(PanelTest, TicksThatWereMissedDoNotQueueUp) {
  seam_.SetTimerEnabled(true);
  Sleep(1500);  // fifty of them
  seam_.LetMessagesRun();
  EXPECT_LE(world_.ticks, 5);
}

TEST_F(PanelTest, TicksThatTakeLongerThanTheyAreApartLetTheProgramGoOn) {
  seam_.SetTimerEnabled(true);
  world_.duringTick = [&] {
    Sleep(60);
    if (world_.ticks == 20) seam_.SetTimerEnabled(false);
  };
  Sleep(60);
  seam_.LetMessagesRun();
  EXPECT_EQ(world_.ticks, 1);
}

TEST_F(PanelTest, EnterPressesNothingOnTheMinimisedWindow) {
  Show();
  seam_.Minimise();
  PostMessageW(panel_, WM_KEYDOWN, VK_RETURN, 0);
  EXPECT_FALSE(world_.RunUntil([&] { return !world_.commands.empty(); }, 200));
}

TEST_F(PanelTest, TheTimerTicksWhileTheWindowIsMinimised) {
  seam_.Minimise();
  EXPECT_TRUE(IsIconic(panel_));
  seam_.Minimise();
  EXPECT_TRUE(IsIconic(panel_));
  seam_.SetTimerEnabled(true);
  EXPECT_TRUE(world_.RunUntil([&] { return world_.ticks >= 5; }, kPatience));
}

TEST_F(PanelTest, AClickOnItIsTold) {
  SendMessageW(panel_, WM_LBUTTONUP, 0, MAKELPARAM(1, 1));
  EXPECT_EQ(world_.clicks, 1);
}

TEST_F(PanelTest, ClosingItUnloadsTheForm) {
  SendMessageW(panel_, WM_CLOSE, 0, 0);
  EXPECT_EQ(world_.unloads, 1);
  EXPECT_TRUE(IsWindow(panel_));
}

TEST_F(PanelTest, TheEndOfTheSessionIsToldOnceItIsCertain) {
  EXPECT_EQ(SendMessageW(panel_, WM_QUERYENDSESSION, 0, 0), TRUE);
  SendMessageW(panel_, WM_ENDSESSION, FALSE, 0);
  EXPECT_EQ(world_.sessionEnds, 0);
  SendMessageW(panel_, WM_ENDSESSION, TRUE, 0);
  EXPECT_EQ(world_.sessionEnds, 1);
  EXPECT_EQ(world_.unloads, 0);
}

// An access violation inside a window procedure may be swallowed by the system, so that only this tells of
// it.
std::atomic<int> badReads = 0;

LONG CALLBACK CountBadReads(EXCEPTION_POINTERS* exception) {
  if (exception->ExceptionRecord->ExceptionCode == EXCEPTION_ACCESS_VIOLATION) ++badReads;
  return EXCEPTION_CONTINUE_SEARCH;
}

// Any program may send any number where the system sends the address of a rectangle.
TEST_F(PanelTest, AChangeOfScaleIsReadOnlyWhereThereIsMemory) {
  Show();
  badReads = 0;
  void* const handler = AddVectoredExceptionHandler(1, &CountBadReads);
  for (const LPARAM address : {LPARAM{0}, LPARAM{1}, LPARAM{0x10000}, LPARAM{-1}})
    SendMessageW(panel_, WM_DPICHANGED, MAKEWPARAM(96, 96), address);
  EXPECT_EQ(badReads, 0);
  RemoveVectoredExceptionHandler(handler);

  RECT place{30, 40, 500, 400};
  SendMessageW(panel_, WM_DPICHANGED, MAKEWPARAM(96, 96), reinterpret_cast<LPARAM>(&place));
  RECT reached{};
  GetWindowRect(panel_, &reached);
  EXPECT_EQ(reached.left, 30);
  EXPECT_EQ(reached.top, 40);
}

// A program that presses a button must not wait for what the button does.
TEST_F(PanelTest, ACommandThatAnotherThreadSendsBecomesAnEventOfItsOwn) {
  std::atomic<bool> sent = false;
  std::thread other([&] {
    SendMessageW(panel_, WM_COMMAND, win32::ButtonCommand(0), 0);
    sent = true;
  });
  EXPECT_EQ(seam_.TimerEnabled(), false);
  for (const ULONGLONG end = GetTickCount64() + kPatience; !sent && GetTickCount64() < end;) {
    MSG none;
    PeekMessageW(&none, nullptr, 0, 0, PM_NOREMOVE | PM_QS_SENDMESSAGE);  // lets it in, and no event
    Sleep(1);
  }
  other.join();
  EXPECT_THAT(world_.commands, IsEmpty());
  EXPECT_TRUE(HeardCommands(1));
  EXPECT_THAT(world_.commands, ElementsAre(&Mouse::cmdVoiceSam_Click));
}

// Nor may it wait until a menu is closed, whose loop would hear nothing else meanwhile.
TEST_F(PanelTest, AMenuThatAnotherThreadOpensLetsTicksAndKeysIn) {
  Show();
  std::thread other([&] { SendMessageW(panel_, WM_SYSCOMMAND, SC_KEYMENU, 'f'); });
  DuringTicks({[] { return InMenu(); }, [this] { return Press({VK_RETURN}), true; }});
  EXPECT_TRUE(HeardCommands(1));
  other.join();
  EXPECT_THAT(world_.commands, ElementsAre(&Mouse::mnuFileMinimize_Click));
}

}  // namespace
}  // namespace pointalk::contract
