// The system's version, paths, clipboard and mail program, and the end of the program.
#pragma once

#include "linux/notices.h"
#include "linux/things.h"
#include "platform/system.h"

namespace pointalk::linux {

class LinuxSystem final : public System {
 public:
  LinuxSystem(Things& things, Notices& notices) : things_(things), notices_(notices) {}

  // That of the kernel, of a platform that is not of the oldest family.
  std::optional<SystemVersion> Version() override;
  Text ProgramFolder() override;
  Text ShortPath(TextView path, int capacity) override;
  bool SetClipboard(TextView text) override;

  // Opens a link for a message with the desktop's mail program; nothing else is ever asked for.
  bool ShellOpen(TextView operation, TextView file, TextView parameters, TextView directory,
                 int show) override;
  [[noreturn]] void EndProgram() override;

 private:
  Things& things_;
  Notices& notices_;
};

}  // namespace pointalk::linux
