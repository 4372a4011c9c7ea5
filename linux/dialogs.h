// Message boxes and input boxes.
#pragma once

#include "platform/dialogs.h"

namespace pointalk::linux {

class LinuxDialogs final : public Dialogs {
 public:
  int AskByBox(TextView text, TextView title, int style) override;
  Text AskByInput(TextView prompt, TextView title, TextView proposed) override;
};

}  // namespace pointalk::linux
