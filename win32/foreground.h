// The keyboard for a window that opens while another program has it.
#pragma once

#include <windows.h>

namespace pointalk::win32 {

// Call right before a dialog that sets itself to the foreground, or before a window is set to it. The system
// lets only the program that the user last had to do with come to the front; a question of ours is spoken
// wherever the pointer is, and its keys have to reach it.
void ClaimForeground();

bool IsBox(HWND window);

// The box of the calling thread that waits for the user's answer; null where none is open.
HWND OpenBox();

// Make it right before a box is opened, and keep it until that is answered. The front is claimed at once, and
// where the box is not there a moment later, for it again, a few times at most.
class BoxInFront {
 public:
  // The form's window is the thread's, and serves a timer.
  explicit BoxInFront(HWND form);
  ~BoxInFront();
  BoxInFront(const BoxInFront&) = delete;
  BoxInFront& operator=(const BoxInFront&) = delete;

 private:
  static void CALLBACK OnTimer(HWND form, UINT message, UINT_PTR self, DWORD time) noexcept;
  void Look();
  void StopLooking() { KillTimer(form_, Timer()); }
  UINT_PTR Timer() const { return reinterpret_cast<UINT_PTR>(this); }

  HWND form_;
  int looksLeft_;
};

}  // namespace pointalk::win32
