// The simulated machine's files.
#pragma once

#include "platform/files.h"
#include "sim/machine.h"

namespace pointalk::sim {

class SimFiles final : public Files {
 public:
  explicit SimFiles(Machine& machine) : machine_(machine) {}

  bool Exists(FilePath path) override;
  std::optional<Text> Read(FilePath path) override;
  bool Write(FilePath path, TextView text) override;
  bool WriteLog(FilePath path, TextView text) override { return Write(path, text); }
  bool Append(FilePath path, TextView text) override;

 private:
  bool IsReadOnly(TextView path) const;

  Machine& machine_;
};

}  // namespace pointalk::sim
