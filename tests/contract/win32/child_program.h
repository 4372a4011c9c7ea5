// Another program that is driven by lines: one in, one out.
#pragma once

#include <string>

#include "win32/handles.h"

namespace pointalk::contract {

class ChildProgram {
 public:
  // The options follow the path on the command line. Throws std::runtime_error when it cannot be started.
  explicit ChildProgram(const std::wstring& path, const std::wstring& options = {});
  // Ends it at once.
  ~ChildProgram();
  ChildProgram(const ChildProgram&) = delete;
  ChildProgram& operator=(const ChildProgram&) = delete;

  void Write(const std::string& line);

  // The next line; throws std::runtime_error when none comes within 20 seconds or the program has ended.
  std::string ReadLine();

 private:
  win32::OwnedHandle process_;
  win32::OwnedHandle in_;
  win32::OwnedHandle out_;
  std::string read_;  // and not yet given out
};

}  // namespace pointalk::contract
