#include "win32/panel.h"

#include <dbt.h>

#include <climits>
#include <utility>

#include "win32/exact_timer.h"
#include "win32/foreground.h"
#include "win32/mouse_reports.h"
#include "win32/one_pointalk.h"
#include "win32/panel_commands.h"
#include "win32/wide_text.h"

namespace pointalk::win32 {
namespace {

constexpr UINT_PTR kPollTimer = 1;
constexpr UINT_PTR kDevicesTimer = 2;
constexpr UINT kDevicesSettle = 1000;  // milliseconds after the last change, of which there are many at once
constexpr UINT kDevicesAgain = 100;    // milliseconds: the tones are silent for moments only
constexpr DWORD kStyle = WS_OVERLAPPED | WS_CAPTION | WS_SYSMENU | WS_MINIMIZEBOX | WS_CLIPCHILDREN;
constexpr SIZE kFirstSize = {400, 200};  // pixels, until it is laid out

// A window between two screens may belong to one of them at the one's scale, and to the other at the other's.
constexpr int kMostLayouts = 3;

void RegisterPanelClass(WNDPROC procedure) {
  WNDCLASSEXW panel{};
  panel.cbSize = sizeof panel;
  panel.lpfnWndProc = procedure;
  panel.hInstance = GetModuleHandleW(nullptr);
  panel.hIcon = LoadIconW(panel.hInstance, MAKEINTRESOURCEW(1));
  panel.hCursor = LoadCursorW(nullptr, MAKEINTRESOURCEW(32512));
  panel.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
  panel.lpszClassName = kPanelClass;
  RegisterClassExW(&panel);  // a second panel in one process finds it there
}

// Whether keys and mouse belong to a loop of the system's own now: an open menu's, a window's that is moved.
bool SystemTakesInput() {
  GUITHREADINFO thread{};
  thread.cbSize = sizeof thread;
  constexpr DWORD kOwnLoops = GUI_INMENUMODE | GUI_SYSTEMMENUMODE | GUI_POPUPMENUMODE | GUI_INMOVESIZE;
  return GetGUIThreadInfo(GetCurrentThreadId(), &thread) != FALSE && (thread.flags & kOwnLoops) != 0;
}

// The next message that waits. What would be lost on us stays for the loop that it is meant for, characters
// of keys that are handled already included.
bool TakeMessage(MSG& message) {
  if (!SystemTakesInput()) return PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE;
  constexpr UINT kHow = PM_REMOVE | PM_QS_POSTMESSAGE | PM_QS_PAINT | PM_QS_SENDMESSAGE;
  return PeekMessageW(&message, nullptr, WM_NULL, WM_KEYFIRST - 1, kHow) != FALSE ||
         PeekMessageW(&message, nullptr, WM_KEYLAST + 1, UINT_MAX, kHow) != FALSE;
}

// A rectangle where a message says that there is one. Any program may send the message, with any number for
// an address; no value where nothing can be read.
std::optional<RECT> RectangleAt(LPARAM address) {
  RECT place{};
  SIZE_T count = 0;
  if (!ReadProcessMemory(GetCurrentProcess(), reinterpret_cast<const void*>(address), &place, sizeof place,
                         &count) ||
      count != sizeof place)
    return std::nullopt;
  return place;
}

bool TellsOfDevices(UINT message, WPARAM wParam) {
  return (message == WM_POWERBROADCAST && wParam == PBT_APMRESUMEAUTOMATIC) ||
         (message == WM_DEVICECHANGE && wParam == DBT_DEVNODES_CHANGED);
}

bool MayTakeLong(UINT message) {
  return message == WM_COMMAND || message == WM_LBUTTONUP || message == WM_CLOSE ||
         message == WM_SYSCOMMAND || message == ComeForwardMessage();
}

}  // namespace

// The system would rather make it on the screen that it is started from, which may be of another scale.
WinPanel::WinPanel(const VoiceThread& voice, const ScreenQuestions& screens)
    : voice_(voice), keys_(MakePanelAccelerators()), screens_(screens) {
  RegisterPanelClass(&OnMessage);
  menu_ = MakePanelMenu();
  const POINT place = screens_.topLeft();
  window_ = CreateWindowExW(0, kPanelClass, Wide(kPanelCaption).c_str(), kStyle, place.x, place.y,
                            kFirstSize.cx, kFirstSize.cy, nullptr, menu_, GetModuleHandleW(nullptr), nullptr);
  SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  controls_.emplace(window_);
  focus_ = controls_->FirstButton();
  Fit(place);
}

WinPanel::~WinPanel() { DestroyWindow(window_); }

// The scale may change while the window is moved and resized, which the system tells in the midst of it: then
// all is measured again.
void WinPanel::Fit(POINT place) {
  if (std::exchange(fits_, true)) return;
  LayOut(place);
  for (int again = 1; again < kMostLayouts && screens_.scaleOf(window_) != dpi_; ++again) LayOut(place);
  fits_ = false;
}

// The frame is taken from the window itself, whose menu may need a second line. How many it needs shows at
// the window's width.
void WinPanel::LayOut(POINT place) {
  dpi_ = screens_.scaleOf(window_);
  const SIZE inside = controls_->Arrange(dpi_, screens_.roomFor(window_));
  Resize(place, inside);
  Resize(place, inside);
}

void WinPanel::Resize(POINT place, SIZE inside) {
  RECT whole, client;
  GetWindowRect(window_, &whole);
  GetClientRect(window_, &client);
  SetWindowPos(window_, nullptr, place.x, place.y, whole.right - whole.left - client.right + inside.cx,
               whole.bottom - whole.top - client.bottom + inside.cy, SWP_NOZORDER | SWP_NOACTIVATE);
}

LRESULT CALLBACK WinPanel::OnMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
  auto* const panel = reinterpret_cast<WinPanel*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (panel == nullptr) return DefWindowProcW(window, message, wParam, lParam);
  // Another program that presses a button waits until the press is handled, and a command may ask the user
  // and speak for minutes, or a menu stay open: it becomes an event of its own.
  if (MayTakeLong(message) && InSendMessage()) return panel->HandleLater(message, wParam, lParam);
  if (message == ComeForwardMessage()) {
    panel->ComeForward();
    return 0;
  }
  auto result = panel->HandleEvent(message, wParam);
  if (!result) result = panel->HandleWindow(message, wParam, lParam);
  return result ? *result : DefWindowProcW(window, message, wParam, lParam);
}

// While a text is spoken that the form waits for, it is not known whether the program ends after it: a second
// start gets no promise then, and asks again.
LRESULT WinPanel::HandleLater(UINT message, WPARAM wParam, LPARAM lParam) {
  const bool comesForward = message == ComeForwardMessage();
  if (!comesForward || !std::exchange(toComeForward_, true)) PostMessageW(window_, message, wParam, lParam);
  return comesForward && !voice_.IsWaitedFor() ? AnswerToSecondStart(window_) : 0;
}

std::optional<LRESULT> WinPanel::HandleEvent(UINT message, WPARAM wParam) {
  if (events_ == nullptr) return std::nullopt;
  if (TellsOfDevices(message, wParam)) SetTimer(window_, kDevicesTimer, kDevicesSettle, nullptr);
  switch (message) {
    case WM_TIMER:
      if (wParam == kDevicesTimer) {
        TellDevices();
      } else {
        TellTick();
      }
      return 0;
    case kMouseReport: events_->OnMouse(static_cast<std::int32_t>(wParam)); return 0;
    case WM_COMMAND: TellCommand(LOWORD(wParam)); return 0;
    case WM_LBUTTONUP: events_->OnClick(); return 0;
    case WM_CLOSE: events_->OnUnload(); return 0;
    case WM_ENDSESSION:
      if (wParam != FALSE) events_->OnSessionEnd();
      return 0;
    default: return std::nullopt;
  }
}

std::optional<LRESULT> WinPanel::HandleWindow(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_ACTIVATE:
      if (LOWORD(wParam) != WA_INACTIVE) return std::nullopt;
      KeepFocus();
      return 0;
    case WM_SYSCOMMAND: KeepFocus(); return std::nullopt;
    case WM_SETFOCUS: SetFocus(focus_); return 0;
    case WM_SIZE: {
      if (wParam == SIZE_MINIMIZED) return std::nullopt;
      if (GetFocus() == window_) SetFocus(focus_);  // a minimised window's could not be given the keyboard
      RECT place{};
      if (screens_.scaleOf(window_) != dpi_ && GetWindowRect(window_, &place)) Fit({place.left, place.top});
      return std::nullopt;
    }
    case DM_GETDEFID: return MAKELONG(GetDlgCtrlID(controls_->FirstButton()), DC_HASDEFID);
    case WM_DPICHANGED: {
      if (IsIconic(window_)) return 0;  // what is suggested then is a place for the icon
      if (const auto suggested = RectangleAt(lParam)) Fit({suggested->left, suggested->top});
      return 0;
    }
    default: return std::nullopt;
  }
}

// An open box is what the user has to answer first.
void WinPanel::ComeForward() {
  toComeForward_ = false;
  askedFor_ = !runs_;
  if (runs_) ShowWindow(window_, SW_RESTORE);
  const HWND box = OpenBox();
  if (box == nullptr && !runs_) return;
  ClaimForeground();
  SetForegroundWindow(box != nullptr ? box : window_);
}

void WinPanel::KeepFocus() {
  if (const HWND focus = GetFocus(); focus != nullptr && IsChild(window_, focus)) focus_ = focus;
}

void WinPanel::TellCommand(UINT command) {
  if (const Handler handler = HandlerOf(command)) events_->OnCommand(handler);
}

// A box has a loop of its own, but what comes while that waits for a tick has to be handed on as well as
// there.
void WinPanel::HandOn(MSG& message) {
  const HWND top = GetAncestor(message.hwnd, GA_ROOT);
  if (top == window_ && TranslateAcceleratorW(window_, keys_.get(), &message) != 0) return;
  const bool hasControls = top == window_ ? !IsIconic(window_) : IsBox(top);
  if (hasControls && IsDialogMessageW(top, &message)) return;
  TranslateMessage(&message);
  DispatchMessageW(&message);
}

void WinPanel::Run() {
  runs_ = true;
  if (askedFor_) ComeForward();
  MSG message;
  while (GetMessageW(&message, nullptr, 0, 0) > 0) HandOn(message);
}

// A tick comes after everything else, and where each takes longer than they are apart the next is due
// already.
void WinPanel::LetMessagesRun() {
  MSG message;
  while (TakeMessage(message)) {
    if (message.message == WM_QUIT) return PostQuitMessage(static_cast<int>(message.wParam));  // for Run
    HandOn(message);
    if (message.message == WM_TIMER && message.wParam == kPollTimer) return;
  }
}

// Only the foreground program's window may hand the keyboard to the next one; one that is minimised stays as
// it is.
void WinPanel::Minimise() {
  if (IsIconic(window_)) return;
  KeepFocus();  // the system takes it from the control before it tells
  ShowWindow(window_, GetForegroundWindow() == window_ ? SW_MINIMIZE : SW_SHOWMINNOACTIVE);
}

// A tick switches the timer off and on again around what it must not be disturbed in. The system's timer goes
// on meanwhile, so that the next tick comes 30 ms after this one began and not after it ended; it is stopped
// only when it fires while nobody wants it.
void WinPanel::SetTimerEnabled(bool enabled) {
  timerEnabled_ = enabled;
  if (enabled && !timerArmed_) ArmTimer();
}

void WinPanel::SetTimerInterval(int milliseconds) {
  if (milliseconds == timerInterval_) return;
  timerInterval_ = milliseconds;
  if (timerArmed_) ArmTimer();
}

void WinPanel::ArmTimer() {
  timerArmed_ = SetExactTimer(window_, kPollTimer, static_cast<UINT>(timerInterval_));
}

void WinPanel::TellTick() {
  if (timerEnabled_) return events_->OnTick();
  KillTimer(window_, kPollTimer);
  timerArmed_ = false;
}

void WinPanel::TellDevices() {
  if (events_->OnDevices()) {
    KillTimer(window_, kDevicesTimer);
  } else {
    SetTimer(window_, kDevicesTimer, kDevicesAgain, nullptr);
  }
}

bool WinPanel::MenuChecked(TextView name) {
  const UINT command = EntryCommand(name);
  if (command == 0) return false;
  const UINT state = GetMenuState(menu_, command, MF_BYCOMMAND);
  return state != static_cast<UINT>(-1) && (state & MF_CHECKED) != 0;
}

void WinPanel::SetMenuChecked(TextView name, bool checked) {
  const UINT command = EntryCommand(name);
  if (command != 0) CheckMenuItem(menu_, command, static_cast<UINT>(checked ? MF_CHECKED : MF_UNCHECKED));
}

}  // namespace pointalk::win32
