// A shell script on the Linux side that works for this process.
//
// Under Wine a Linux program can be started but not waited for, ended or given a pipe. A FIFO does all of
// it: the script makes one named "commands" in its folder and reads lines from it; this side opens it for
// reading and writing, which never blocks. When the object, or the whole process however it ends, is gone,
// the script reads the end of the file, ends what it started and removes the folder; only a process that ends
// before the script has begun leaves the folder. Answers come as files in the folder.
#pragma once

#include <string>
#include <string_view>

namespace pointalk::wine {

class LinuxHelper {
 public:
  // Makes a new folder under the temporary one, writes the script there and starts it in the folder. Takes
  // some milliseconds, at most 15 s; see Running.
  LinuxHelper(const wchar_t* name, std::string_view script);
  ~LinuxHelper();
  LinuxHelper(const LinuxHelper&) = delete;
  LinuxHelper& operator=(const LinuxHelper&) = delete;

  // False when the script could not be started or did not make its FIFO in time.
  bool Running() const { return commands_ != nullptr; }

  // Sends one line, given without its end. Blocks while the FIFO is full, which takes 64 KB that nobody
  // reads.
  void Tell(const std::string& line);

  std::wstring PathOf(const std::wstring& file) const { return folder_ + L"\\" + file; }

 private:
  bool Start();
  void OpenCommands();

  std::wstring folder_;
  void* commands_ = nullptr;
};

// False when the file could not be written whole.
bool WriteWholeFile(const std::wstring& path, std::string_view bytes);

}  // namespace pointalk::wine
