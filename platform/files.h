// Seam: the program's few small text files. Text is 8-bit on disk, in the system's ANSI code page.
#pragma once

#include <optional>

#include "text/text.h"

namespace pointalk {

enum class Folder {
  kProgram,  // the folder that holds the program
  kCurrent,  // the process's current directory
};

struct FilePath {
  Folder folder = Folder::kProgram;
  TextView name;  // without any folder
};

class Files {
 public:
  virtual ~Files() = default;

  virtual bool Exists(FilePath path) = 0;

  // The whole file; no value when it is missing or cannot be read.
  virtual std::optional<Text> Read(FilePath path) = 0;

  // Replaces the file's whole content, creating it where it is missing. Whatever moment the process ends at,
  // the folder holds the old file or the new one, and once this returns true the new one is on the disk.
  // False leaves the old file.
  [[nodiscard]] virtual bool Write(FilePath path, TextView text) = 0;

  // The same for a file that is rewritten all the time: it outlives the process, whatever moment that ends
  // at, but after a power cut it may hold anything.
  [[nodiscard]] virtual bool WriteLog(FilePath path, TextView text) = 0;

  // Adds to the file's end, creating it where it is missing. On the disk once this returns true.
  [[nodiscard]] virtual bool Append(FilePath path, TextView text) = 0;
};

}  // namespace pointalk
