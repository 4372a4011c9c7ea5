#include "tests/contract/win32/dialog_answers.h"
#include "tests/contract/win32/patience.h"

#include <cwchar>
#include <string_view>
#include <utility>

namespace pointalk::contract {
namespace {

constexpr DWORD kSettles = 300;  // milliseconds from coming to the front to taking keys

BOOL CALLBACK KeepOwnDialog(HWND window, LPARAM found) {
  DWORD process = 0;
  GetWindowThreadProcessId(window, &process);
  wchar_t name[16] = {};
  GetClassNameW(window, name, 16);
  const bool ours =
      process == GetCurrentProcessId() && IsWindowVisible(window) && std::wcscmp(name, L"#32770") == 0;
  if (ours) *reinterpret_cast<HWND*>(found) = window;
  return !ours;
}

HWND WaitForKeyboard() {
  for (const ULONGLONG end = GetTickCount64() + kPatience; GetTickCount64() < end; Sleep(10)) {
    const HWND dialog = OwnDialog();
    if (dialog != nullptr && GetForegroundWindow() == dialog) return dialog;
  }
  return nullptr;
}

void TypeInto(const std::vector<int>& keys) {
  if (WaitForKeyboard() != nullptr) {
    Sleep(kSettles);
    for (const int key : keys) {
      PressKey(key, true);
      PressKey(key, false);
    }
  } else if (const HWND dialog = OwnDialog()) {
    PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
  }
}

}  // namespace

void PressKey(int virtualKey, bool down) {
  INPUT input{};
  input.type = INPUT_KEYBOARD;
  input.ki.wVk = static_cast<WORD>(virtualKey);
  input.ki.dwFlags = down ? 0 : KEYEVENTF_KEYUP;
  SendInput(1, &input, sizeof input);
}

HWND OwnDialog() {
  HWND dialog = nullptr;
  EnumWindows(&KeepOwnDialog, reinterpret_cast<LPARAM>(&dialog));
  return dialog;
}

std::vector<int> KeysOf(std::u16string_view text) {
  std::vector<int> keys;
  for (const char16_t character : text) keys.push_back(VkKeyScanW(static_cast<wchar_t>(character)) & 0xFF);
  return keys;
}

DialogAnswers::~DialogAnswers() {
  for (std::thread& hand : hands_) hand.join();
}

void DialogAnswers::Type(std::vector<int> virtualKeys) {
  for (std::thread& hand : hands_) hand.join();
  hands_.clear();
  hands_.emplace_back([keys = std::move(virtualKeys)] { TypeInto(keys); });
}

}  // namespace pointalk::contract
