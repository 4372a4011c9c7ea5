// Watches the mouse buttons of the whole desktop and reports them to the form.
#pragma once

#include <windows.h>

#include <atomic>

#include "input/double_clicks.h"
#include "win32/handles.h"

namespace pointalk::win32 {

// Posted to the form's window for each report, with the mouse message's number in wParam.
inline constexpr UINT kMouseReport = WM_APP + 1;

// The number of the button that is the left one by the user's settings. Messages, the hook's included, are
// told of buttons as the user's settings have them; the state of a key is that of the button on the mouse.
int LeftButton();

// The hook that sees every mouse message on the machine runs on a thread that does nothing else, for until it
// answers the mouse stands still; a report is only posted, and the form takes it when it has time.
class MouseReports {
 public:
  explicit MouseReports(HWND form) : form_(form) {}
  ~MouseReports() { Stop(); }
  MouseReports(const MouseReports&) = delete;
  MouseReports& operator=(const MouseReports&) = delete;

  // False when the system refuses the hook; it is asked again every second until Stop.
  bool Start();
  void Stop();

 private:
  static DWORD WINAPI ThreadMain(void* reports);
  static LRESULT CALLBACK OnMouse(int code, WPARAM message, LPARAM details);

  // Ends when Stop says so, and not for a message that any program may post.
  void Watch();
  bool Install();
  void Remove();
  void CheckHook();
  void CheckButton();
  void Note(UINT message, const MSLLHOOKSTRUCT& details);

  HWND form_;
  OwnedHandle thread_;
  OwnedHandle ready_;  // set once the first attempt to install the hook is over
  DWORD threadId_ = 0;

  std::atomic<HHOOK> hook_ = nullptr;
  std::atomic<bool> stops_ = false;

  // Of the thread alone.
  DoubleClicks clicks_;
  bool leftDown_ = false;  // by the messages
  DWORD leftPress_ = 0;    // when it went down, by the system's clock of 32 bits, in milliseconds
  bool heard_ = false;     // the hook was called since the last check
  POINT lastPlace_ = {};   // of the pointer, at the last check
};

}  // namespace pointalk::win32
