// Mouse reports as the hook makes them.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <windows.h>

#include <tlhelp32.h>

#include "tests/contract/win32/patience.h"
#include "tests/contract/win32/win_world.h"
#include "win32/handles.h"

namespace pointalk::contract {
namespace {

using ::testing::ElementsAre;

constexpr ULONGLONG kLooksAtButton = 2'500;  // milliseconds, in which the button is looked at twice

class MouseReportsTest : public ::testing::Test {
 protected:
  MouseReportsTest() {
    world_.MovePointer({200, 200});
    EXPECT_TRUE(world_.platform.input.ReportMouse(true));
  }

  void Click() {
    world_.SetLeftButton(true);
    world_.SetLeftButton(false);
  }

  WinWorld world_{{{{"ground", u"ContractGround", u"", {100, 100, 500, 400}}}}};
};

TEST_F(MouseReportsTest, ADoubleClickIsReportedInPlaceOfItsSecondPress) {
  Click();
  Click();
  EXPECT_THAT(world_.MouseReports(4), ElementsAre(513, 514, 515, 514));
}

TEST_F(MouseReportsTest, ClicksApartAreSingleClicks) {
  Click();
  EXPECT_THAT(world_.MouseReports(2), ElementsAre(513, 514));
  world_.MovePointer({300, 300});
  Click();
  EXPECT_THAT(world_.MouseReports(4), ElementsAre(513, 514, 513, 514));
}

TEST_F(MouseReportsTest, TheMouseDoesNotWaitForTheForm) {
  Click();
  constexpr Point kPlace{300, 300};
  // No message is let run meanwhile. Wine may still hear of an earlier place from the X server.
  for (const ULONGLONG end = GetTickCount64() + kPatience; GetTickCount64() < end; Sleep(20)) {
    SetCursorPos(kPlace.x, kPlace.y);
    if (world_.platform.input.PointerPosition() == kPlace) break;
  }
  EXPECT_EQ(world_.platform.input.PointerPosition(), kPlace);
  EXPECT_TRUE(world_.mouseReports.empty());
  EXPECT_THAT(world_.MouseReports(2), ElementsAre(513, 514));
}

TEST_F(MouseReportsTest, SwitchingThemOnTwiceReportsOnce) {
  EXPECT_TRUE(world_.platform.input.ReportMouse(true));
  Click();
  EXPECT_THAT(world_.MouseReports(2), ElementsAre(513, 514));
  world_.MovePointer({300, 300});
  Click();
  EXPECT_THAT(world_.MouseReports(4), ElementsAre(513, 514, 513, 514));
}

// As any program with the user's rights may do it.
void EndMessageLoopsOfOtherThreads() {
  const win32::OwnedHandle threads(CreateToolhelp32Snapshot(TH32CS_SNAPTHREAD, 0));
  THREADENTRY32 thread{};
  thread.dwSize = sizeof thread;
  for (BOOL found = Thread32First(threads.get(), &thread); found;
       found = Thread32Next(threads.get(), &thread)) {
    const bool ours = thread.th32OwnerProcessID == GetCurrentProcessId();
    if (ours && thread.th32ThreadID != GetCurrentThreadId())
      PostThreadMessageW(thread.th32ThreadID, WM_QUIT, 0, 0);
  }
}

TEST_F(MouseReportsTest, TheyGoOnWhenAnotherProgramEndsTheMessageLoopOfTheirThread) {
  EndMessageLoopsOfOtherThreads();
  world_.RunUntil([] { return false; }, kLooksAtButton);
  Click();
  EXPECT_THAT(world_.MouseReports(2), ElementsAre(513, 514));
}

TEST_F(MouseReportsTest, TheyCanBeSwitchedOffAndOnAgain) {
  EXPECT_TRUE(world_.platform.input.ReportMouse(false));
  EXPECT_TRUE(world_.platform.input.ReportMouse(true));
  Click();
  EXPECT_THAT(world_.MouseReports(2), ElementsAre(513, 514));
}

// A release over a window of more rights than ours is told to nobody who listens. Here a hook that comes
// before ours keeps it from it.
class KeptRelease {
 public:
  KeptRelease() : hook_(SetWindowsHookExW(WH_MOUSE_LL, &OnMouse, GetModuleHandleW(nullptr), 0)) {}
  ~KeptRelease() { UnhookWindowsHookEx(hook_); }
  KeptRelease(const KeptRelease&) = delete;
  KeptRelease& operator=(const KeptRelease&) = delete;

 private:
  static LRESULT CALLBACK OnMouse(int code, WPARAM message, LPARAM details) {
    if (code == HC_ACTION && message == WM_LBUTTONUP) return 0;
    return CallNextHookEx(nullptr, code, message, details);
  }

  HHOOK hook_;
};

TEST_F(MouseReportsTest, AButtonThatWasLetGoUnseenIsUp) {
  world_.SetLeftButton(true);
  EXPECT_THAT(world_.MouseReports(1), ElementsAre(513));
  {
    const KeptRelease kept;
    world_.SetLeftButton(false);
  }
  EXPECT_TRUE(world_.RunUntil([&] { return world_.mouseReports.size() == 2; }, kPatience));
  EXPECT_THAT(world_.mouseReports, ElementsAre(513, 514));
}

TEST_F(MouseReportsTest, AButtonThatIsHeldIsDown) {
  world_.SetLeftButton(true);
  world_.RunUntil([] { return false; }, kLooksAtButton);
  EXPECT_THAT(world_.mouseReports, ElementsAre(513));
  world_.SetLeftButton(false);
  EXPECT_THAT(world_.MouseReports(2), ElementsAre(513, 514));
  world_.RunUntil([] { return false; }, kLooksAtButton);
  EXPECT_THAT(world_.mouseReports, ElementsAre(513, 514));
}

// The user's mouse is a left-handed one for as long as this lives.
class LeftHandedMouse {
 public:
  LeftHandedMouse() : before_(SwapMouseButton(TRUE)) {}
  ~LeftHandedMouse() { SwapMouseButton(before_); }
  LeftHandedMouse(const LeftHandedMouse&) = delete;
  LeftHandedMouse& operator=(const LeftHandedMouse&) = delete;

 private:
  BOOL before_;
};

void PressRightOne(bool down) {
  INPUT input{};
  input.type = INPUT_MOUSE;
  input.mi.dwFlags = down ? MOUSEEVENTF_RIGHTDOWN : MOUSEEVENTF_RIGHTUP;
  SendInput(1, &input, sizeof input);
}

// What the hook is told then cannot be seen under Wine, where neither hooks nor windows are told of a swap.
TEST_F(MouseReportsTest, OfALeftHandedMouseTheRightOneIsTheLeftButton) {
  const LeftHandedMouse leftHanded;
  Input& input = world_.platform.input;
  PressRightOne(true);
  EXPECT_TRUE(input.KeyDown(kKeyLeftButton));
  PressRightOne(false);
  input.KeyDown(kKeyLeftButton);
  EXPECT_FALSE(input.KeyDown(kKeyLeftButton));
  world_.SetLeftButton(true);
  EXPECT_FALSE(input.KeyDown(kKeyLeftButton));
  world_.SetLeftButton(false);
}

}  // namespace
}  // namespace pointalk::contract
