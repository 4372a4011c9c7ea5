// The system's version, paths, clipboard and shell, and the end of the program.
#pragma once

#include <windows.h>

#include "platform/system.h"

namespace pointalk::win32 {

class WinSystem final : public System {
 public:
  explicit WinSystem(HWND form) : form_(form) {}

  std::optional<SystemVersion> Version() override;
  Text ProgramFolder() override;
  Text ShortPath(TextView path, int capacity) override;
  bool SetClipboard(TextView text) override;
  bool ShellOpen(TextView operation, TextView file, TextView parameters, TextView directory,
                 int show) override;
  [[noreturn]] void EndProgram() override { ExitProcess(0); }

 private:
  HWND form_;
};

}  // namespace pointalk::win32
