// A user who answers the dialogs of this process by the keyboard.
#pragma once

#include <windows.h>

#include <string_view>
#include <thread>
#include <vector>

namespace pointalk::contract {

void PressKey(int virtualKey, bool down);

class DialogAnswers {
 public:
  DialogAnswers() = default;
  ~DialogAnswers();
  DialogAnswers(const DialogAnswers&) = delete;
  DialogAnswers& operator=(const DialogAnswers&) = delete;

  // Once a dialog has the keyboard, types these keys; gives up after ten seconds and then closes the dialog,
  // so that the test goes on to fail.
  void Type(std::vector<int> virtualKeys);

 private:
  std::vector<std::thread> hands_;
};

// The dialog of this process that shows; null when there is none.
HWND OwnDialog();

// Keys that type a text of digits and small letters.
std::vector<int> KeysOf(std::u16string_view text);

}  // namespace pointalk::contract
