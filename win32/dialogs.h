// Message boxes and input boxes.
#pragma once

#include <windows.h>

#include "platform/dialogs.h"

namespace pointalk::win32 {

class WinDialogs final : public Dialogs {
 public:
  explicit WinDialogs(HWND form) : form_(form) {}

  int AskByBox(TextView text, TextView title, int style) override;
  Text AskByInput(TextView prompt, TextView title, TextView proposed) override;

 private:
  // A dialog of a window that does not show would not show either.
  HWND Owner() const { return IsWindowVisible(form_) && !IsIconic(form_) ? form_ : nullptr; }

  HWND form_;
};

}  // namespace pointalk::win32
