// A dialog that asks for a line of text.
#pragma once

#include <windows.h>

#include <string>
#include <utility>

namespace pointalk::win32 {

class InputBox {
 public:
  InputBox(std::wstring prompt, std::wstring title, std::wstring proposed)
      : prompt_(std::move(prompt)), title_(std::move(title)), answer_(std::move(proposed)) {}

  // Returns once the box is closed: the text in it, or an empty one when it was cancelled or could not
  // be shown.
  // The proposed text stands there selected, so that typing replaces it; Enter accepts and Escape cancels.
  std::wstring Ask(HWND owner);

 private:
  static INT_PTR CALLBACK OnMessage(HWND box, UINT message, WPARAM wParam, LPARAM lParam);

  void Fill(HWND box);
  void Accept();

  std::wstring prompt_;
  std::wstring title_;
  std::wstring answer_;  // at first the one proposed
  HWND edit_ = nullptr;
};

}  // namespace pointalk::win32
