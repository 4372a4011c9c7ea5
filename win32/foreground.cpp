#include "win32/foreground.h"

#include <iterator>

namespace pointalk::win32 {
namespace {

constexpr UINT kBoxLookInterval = 250;  // milliseconds
constexpr int kMostLooks = 4;

// A key that no keyboard has and no program knows.
constexpr WORD kUnassignedKey = 0xE8;

BOOL CALLBACK TakeOpenBox(HWND window, LPARAM found) {
  if (!IsBox(window) || !IsWindowVisible(window) || !IsWindowEnabled(window)) return TRUE;
  *reinterpret_cast<HWND*>(found) = window;
  return FALSE;
}

}  // namespace

// Inputs of our own make us that program: a mouse movement by no distance where the system counts any input,
// a key where it counts keys alone, as releases before Windows 10 are said to.
void ClaimForeground() {
  INPUT inputs[3]{};
  inputs[0].type = INPUT_MOUSE;
  inputs[1].type = INPUT_KEYBOARD;
  inputs[1].ki.wVk = kUnassignedKey;
  inputs[2] = inputs[1];
  inputs[2].ki.dwFlags = KEYEVENTF_KEYUP;
  SendInput(static_cast<UINT>(std::size(inputs)), inputs, sizeof inputs[0]);
}

bool IsBox(HWND window) { return GetClassLongW(window, GCW_ATOM) == LOWORD(WC_DIALOG); }

HWND OpenBox() {
  HWND open = nullptr;
  EnumThreadWindows(GetCurrentThreadId(), &TakeOpenBox, reinterpret_cast<LPARAM>(&open));
  return open;
}

BoxInFront::BoxInFront(HWND form) : form_(form), looksLeft_(kMostLooks) {
  ClaimForeground();
  SetTimer(form_, Timer(), kBoxLookInterval, &OnTimer);
}

BoxInFront::~BoxInFront() { StopLooking(); }

void CALLBACK BoxInFront::OnTimer(HWND, UINT, UINT_PTR self, DWORD) noexcept {
  reinterpret_cast<BoxInFront*>(self)->Look();
}

void BoxInFront::Look() {
  const HWND box = OpenBox();
  if (--looksLeft_ == 0 || (box != nullptr && GetForegroundWindow() == box)) StopLooking();
  if (box == nullptr || GetForegroundWindow() == box) return;
  ClaimForeground();
  SetForegroundWindow(box);
}

}  // namespace pointalk::win32
