#include "registry/auto_start.h"

namespace pointalk {
namespace {

constexpr TextView kRunKey = u"HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Run";
constexpr TextView kValueName = u"Pointalk";
constexpr TextView kValueData = u"Pointalk.exe";  // no folder: Windows finds it by its own search path

}  // namespace

void AutoStart::mnuProgramMakeAutoStart_Click() {
  registryLayer_.WriteRegistry(kRunKey, kValueName, Text(kValueData));
  spokenDialogs_.TellSpoken(
      u"Now Pointalk will start automatically every time Windows is loaded.\r\n"
      u"To make it NOT start automatically, see the Program menu above.");
  registryLayer_.ClearError();
}

void AutoStart::mnuProgramMakeNotAutoStart_Click() {
  registryLayer_.WriteRegistry(kRunKey, kValueName, Text(kValueData));  // so that there is a value to delete
  registryLayer_.DeleteRegistry(kRunKey, kValueName);
  spokenDialogs_.TellSpoken(
      u"Now Pointalk will NOT start automatically every time Windows is loaded.\r\n"
      u"To make it start automatically, see the Program menu above.");
  registryLayer_.ClearError();
}

}  // namespace pointalk
