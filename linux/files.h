// The program's text files.
#pragma once

#include "platform/files.h"

namespace pointalk::linux {

class LinuxFiles final : public Files {
 public:
  bool Exists(FilePath path) override;
  std::optional<Text> Read(FilePath path) override;
  bool Write(FilePath path, TextView text) override;
  bool WriteLog(FilePath path, TextView text) override;
  bool Append(FilePath path, TextView text) override;
};

}  // namespace pointalk::linux
