// The control panel between screens of different scales and sizes. Wine has one scale for all screens, and
// the first one begins at 0, so stand-ins tell these, and a change is told as Windows tells it: in the midst
// of the move.
#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

#include "win32/panel.h"

namespace pointalk::contract {
namespace {

constexpr UINT kLow = 96;
constexpr UINT kHigh = 192;

// Two screens beside each other. A window is on the one that has most of it.
struct Screens {
  POINT begin = {40, 30};  // of the first one, beside what the system keeps there for itself
  LONG edge = 10'000;
  LONG width = 10'000;  // on the right one, in pixels; the left one has plenty
  bool highIsLeft = false;
  UINT told = kLow;  // to the panel
  int changes = 0;   // told
};

Screens screens;  // procedures of the system have no object

bool IsLeft(HWND window) {
  RECT place{};
  GetWindowRect(window, &place);
  return (place.left + place.right) / 2 < screens.edge;
}

UINT ScaleOfTwo(HWND window) { return IsLeft(window) == screens.highIsLeft ? kHigh : kLow; }

LONG WidthOfTwo(HWND window) { return IsLeft(window) ? 10'000 : screens.width; }

POINT BeginOfTwo() { return screens.begin; }

constexpr win32::ScreenQuestions kTwoScreens = {&ScaleOfTwo, &WidthOfTwo, &BeginOfTwo};

WNDPROC panelProcedure = nullptr;

// As the system does, with a place of the same top left.
LRESULT CALLBACK TellChange(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  const LRESULT result = CallWindowProcW(panelProcedure, window, message, wParam, lParam);
  if (message != WM_WINDOWPOSCHANGED) return result;
  const UINT scale = ScaleOfTwo(window);
  if (std::exchange(screens.told, scale) == scale) return result;
  ++screens.changes;
  RECT place{};
  GetWindowRect(window, &place);
  SendMessageW(window, WM_DPICHANGED, MAKEWPARAM(scale, scale), reinterpret_cast<LPARAM>(&place));
  return result;
}

int fontsSet = 0;
POINT madeAt = {};

LRESULT CALLBACK CountFonts(int code, WPARAM wParam, LPARAM lParam) {
  const auto* const sent = reinterpret_cast<const CWPSTRUCT*>(lParam);
  if (code == HC_ACTION && sent->message == WM_SETFONT) ++fontsSet;
  return CallNextHookEx(nullptr, code, wParam, lParam);
}

LRESULT CALLBACK NotePlace(int code, WPARAM wParam, LPARAM lParam) {
  if (code == HCBT_CREATEWND) {
    const CREATESTRUCTW* const window = reinterpret_cast<const CBT_CREATEWNDW*>(lParam)->lpcs;
    if (window->hwndParent == nullptr) madeAt = {window->x, window->y};
  }
  return CallNextHookEx(nullptr, code, wParam, lParam);
}

class PanelScaleTest : public ::testing::Test {
 protected:
  // From now on a change of scale is told.
  void Watch() {
    panelProcedure = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrW(panel_.Window(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&TellChange)));
  }

  void Move(LONG x, LONG y) {
    SetWindowPos(panel_.Window(), nullptr, x, y, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
  }

  LONG ButtonHeight() const {
    RECT button{};
    GetWindowRect(GetWindow(panel_.Window(), GW_CHILD), &button);
    return button.bottom - button.top;
  }

  // The empty space to the right of and below what stands in the window; the same on both sides when it fits.
  SIZE Space() const {
    RECT inside{};
    GetClientRect(panel_.Window(), &inside);
    SIZE most{};
    for (HWND child = GetWindow(panel_.Window(), GW_CHILD); child != nullptr;
         child = GetWindow(child, GW_HWNDNEXT)) {
      RECT place{};
      GetWindowRect(child, &place);
      MapWindowPoints(nullptr, panel_.Window(), reinterpret_cast<POINT*>(&place), 2);
      most = {std::max(most.cx, place.right), std::max(most.cy, place.bottom)};
    }
    return {inside.right - most.cx, inside.bottom - most.cy};
  }

  void ExpectFits() const {
    const SIZE space = Space();
    EXPECT_GT(space.cx, 0);
    EXPECT_EQ(space.cx, space.cy);
  }

  LONG LabelWidth() const {
    RECT label{};
    GetWindowRect(FindWindowExW(panel_.Window(), nullptr, L"STATIC", nullptr), &label);
    return label.right - label.left;
  }

  LONG Left() const {
    RECT place{};
    GetWindowRect(panel_.Window(), &place);
    return place.left;
  }

  struct Reset {
    Reset() { screens = {}; }
  };

  Reset reset_;
  win32::VoiceThread voice_;
  win32::WinPanel panel_{voice_, kTwoScreens};
};

TEST_F(PanelScaleTest, ItIsMadeWhereItGoesAndLaidOutOnce) {
  fontsSet = 0;
  const HHOOK places = SetWindowsHookExW(WH_CBT, &NotePlace, nullptr, GetCurrentThreadId());
  const HHOOK fonts = SetWindowsHookExW(WH_CALLWNDPROC, &CountFonts, nullptr, GetCurrentThreadId());
  const win32::WinPanel panel(voice_, kTwoScreens);
  UnhookWindowsHookEx(places);
  UnhookWindowsHookEx(fonts);
  EXPECT_EQ(madeAt.x, screens.begin.x);
  EXPECT_EQ(madeAt.y, screens.begin.y);
  EXPECT_EQ(fontsSet, 8);  // seven buttons and the label
}

TEST_F(PanelScaleTest, ItIsLaidOutAnewOnAScreenOfAnotherScale) {
  const LONG low = ButtonHeight();
  ExpectFits();
  screens.edge = 500;
  Watch();
  Move(600, 10);
  EXPECT_EQ(screens.changes, 1);
  EXPECT_GT(ButtonHeight(), low * 3 / 2);
  ExpectFits();
  Move(-400, 10);
  EXPECT_EQ(ButtonHeight(), low);
  ExpectFits();
}

TEST_F(PanelScaleTest, ItsLabelIsNoWiderThanTheScreenThatItIsOn) {
  screens.edge = 500;
  screens.width = LabelWidth();
  Watch();
  Move(600, 10);
  EXPECT_EQ(screens.changes, 1);
  EXPECT_LT(LabelWidth(), screens.width);
  EXPECT_GT(LabelWidth(), 0);
  ExpectFits();
}

TEST_F(PanelScaleTest, OfTheRealScreenAllThatTheSystemLeavesFreeIsUsed) {
  RECT work{};
  SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
  const win32::ScreenQuestions real;
  EXPECT_EQ(real.roomFor(panel_.Window()), work.right - work.left);
  EXPECT_EQ(real.topLeft().x, work.left);
  EXPECT_EQ(real.topLeft().y, work.top);
}

TEST_F(PanelScaleTest, ItIsMeasuredAgainWhenTheScaleChangesWhileItIsLaidOut) {
  const LONG low = ButtonHeight();
  screens.edge = 500;
  Watch();
  RECT suggested{600, 20, 900, 200};
  SendMessageW(panel_.Window(), WM_DPICHANGED, MAKEWPARAM(kHigh, kHigh),
               reinterpret_cast<LPARAM>(&suggested));
  EXPECT_GT(ButtonHeight(), low * 3 / 2);
  ExpectFits();
  EXPECT_EQ(Left(), 600);
}

// Most of it is on the other screen only while it is larger than it ends up.
TEST_F(PanelScaleTest, NoScaleChangesUnderAWindowThatKeepsItsSize) {
  RECT place{};
  GetWindowRect(panel_.Window(), &place);
  const LONG width = place.right - place.left;
  screens.edge = 20 + width * 3 / 4;
  Watch();
  RECT suggested{20, 20, 20 + width, 200};
  SendMessageW(panel_.Window(), WM_DPICHANGED, MAKEWPARAM(kLow, kLow), reinterpret_cast<LPARAM>(&suggested));
  EXPECT_EQ(screens.changes, 0);
  ExpectFits();
}

// At the lower scale it belongs to the screen of the higher one, and the other way round.
TEST_F(PanelScaleTest, BetweenTwoScreensItComesToAnEnd) {
  RECT place{};
  GetWindowRect(panel_.Window(), &place);
  Watch();
  screens.edge = 20 + (place.right - place.left) * 3 / 4;
  screens.highIsLeft = true;
  Move(20, 20);
  EXPECT_GT(screens.changes, 0);
  ExpectFits();
  EXPECT_EQ(Left(), 20);
}

}  // namespace
}  // namespace pointalk::contract
