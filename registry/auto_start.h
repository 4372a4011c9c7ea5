// Starting with Windows, by a value in the machine's Run key.
#pragma once

#include "registry/registry_layer.h"
#include "speech/spoken_dialogs.h"

namespace pointalk {

class AutoStart {
 public:
  AutoStart(RegistryLayer& registryLayer, SpokenDialogs& spokenDialogs)
      : registryLayer_(registryLayer), spokenDialogs_(spokenDialogs) {}

  // Both confirm whether or not the registry let them.
  void mnuProgramMakeAutoStart_Click();
  void mnuProgramMakeNotAutoStart_Click();

 private:
  RegistryLayer& registryLayer_;
  SpokenDialogs& spokenDialogs_;
};

}  // namespace pointalk
