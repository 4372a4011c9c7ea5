#include "linux/auto_start_entry.h"

#include <filesystem>
#include <fstream>
#include <string>
#include <system_error>

#include "linux/folders.h"

namespace pointalk::linux {
namespace {

namespace fs = std::filesystem;

fs::path EntryPath() { return ConfigHome() / "autostart" / "pointalk.desktop"; }

// The program as the session is to start it: by its own path, quoted as a desktop entry has it.
std::string Command() {
  std::error_code error;
  const std::string path = fs::read_symlink("/proc/self/exe", error).string();
  std::string command = "\"";
  for (const char c : path) {
    if (c == '"' || c == '`' || c == '$') command += "\\\\";
    if (c == '\\') command += "\\\\\\";
    if (c == '%') command += '%';
    command += c;
  }
  return command + '"';
}

}  // namespace

bool StartsWithSession() {
  std::error_code error;
  return fs::is_regular_file(EntryPath(), error);
}

bool StartWithSession() {
  std::error_code error;
  fs::create_directories(EntryPath().parent_path(), error);
  std::ofstream entry(EntryPath());
  entry << "[Desktop Entry]\n"
           "Type=Application\n"
           "Name=Pointalk\n"
           "Comment=Tells by tones and words where the pointer is and what lies under it\n"
           "Exec="
        << Command()
        << "\n"
           "Terminal=false\n";
  entry.close();
  return entry.good();
}

bool StartWithSessionNoMore() {
  std::error_code error;
  return fs::remove(EntryPath(), error);
}

}  // namespace pointalk::linux
