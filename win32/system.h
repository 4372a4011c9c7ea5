// The system's version, paths, clipboard and shell, and the end of the program.
#pragma once

#include <windows.h>

#include "platform/system.h"
#include "win32/speech_engines.h"

namespace pointalk::win32 {

class WinSystem final : public System {
 public:
  WinSystem(HWND form, WinSapi5Voice& sapi5, WinSapi4Control& sapi4)
      : form_(form), sapi5_(sapi5), sapi4_(sapi4) {}

  std::optional<SystemVersion> Version() override;
  Text ProgramFolder() override;
  Text ShortPath(TextView path, int capacity) override;
  bool SetClipboard(TextView text) override;
  bool ShellOpen(TextView operation, TextView file, TextView parameters, TextView directory,
                 int show) override;

  // Once the last words were heard.
  [[noreturn]] void EndProgram() override;
  [[noreturn]] static void EndAtOnce() { ExitProcess(0); }

 private:
  HWND form_;
  WinSapi5Voice& sapi5_;
  WinSapi4Control& sapi4_;
};

}  // namespace pointalk::win32
