// Starting with Windows, by a value in the machine's Run key.
#pragma once

#include "app/spoken_dialogs.h"
#include "registry/registry_layer.h"

namespace pointalk {

class AutoStart {
 public:
  AutoStart(RegistryLayer& theRegistry, SpokenDialogs& theDialogs)
      : registry(theRegistry), dialogs(theDialogs) {}

  // Both confirm whether or not the registry let them.
  void mnuProgramMakeAutoStart_Click();
  void mnuProgramMakeNotAutoStart_Click();

 private:
  RegistryLayer& registry;
  SpokenDialogs& dialogs;
};

}  // namespace pointalk
