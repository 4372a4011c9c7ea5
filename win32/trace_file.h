// The file of a trace. It is written by a thread of its own, so that nobody waits for the disk, and ends up
// no larger than a mail can take.
#pragma once

#include <windows.h>

#include <memory>
#include <string>
#include <string_view>

#include "win32/handles.h"

namespace pointalk::win32 {

// Bytes after which the file is renamed, with ".old" behind its name, and begun anew.
inline constexpr std::size_t kLargestTrace = 2 * 1024 * 1024;

class TraceFile {
 public:
  // Lines are added to what is in the file already. Where it cannot be written they are lost, and nobody is
  // told.
  explicit TraceFile(std::wstring path);

  // Writes what is left, but waits for that for two seconds at most.
  ~TraceFile();
  TraceFile(const TraceFile&) = delete;
  TraceFile& operator=(const TraceFile&) = delete;

  // A line without its end. Lost where the disk does not keep up.
  void Add(std::string_view line);

  // What an event that goes on has done so far; empty for none. It is written when it stays the same for a
  // second: the event may never end.
  void SetUnderWay(std::string_view line);

  void Finish();  // as the destructor; what comes after that is lost

 private:
  struct Shared;

  static DWORD WINAPI ThreadMain(void* shared);

  // Belongs to the thread as well, which may outlive everything else.
  std::shared_ptr<Shared> shared_;
  OwnedHandle thread_;
};

}  // namespace pointalk::win32
