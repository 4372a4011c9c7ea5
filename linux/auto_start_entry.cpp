#include "linux/auto_start_entry.h"

#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <system_error>

#include "linux/folders.h"

namespace pointalk::linux {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kGone = " (deleted)";

fs::path EntryPath() { return ConfigHome() / "autostart" / "pointalk.desktop"; }

// By which this program was started. An update puts another file there, and the system then says of ours
// that it is gone.
std::string ProgramPath() {
  std::error_code error;
  std::string path = fs::read_symlink("/proc/self/exe", error).string();
  if (path.ends_with(kGone) && !fs::exists(path, error)) path.resize(path.size() - kGone.size());
  return path;
}

// The program as the session is to start it: by its own path, quoted as a desktop entry has it.
std::string Command() {
  const std::string path = ProgramPath();
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

// The desktop's own settings switch an entry off by one of these lines in it.
bool StartsWithSession() {
  std::ifstream entry(EntryPath());
  std::string line;
  bool isThere = false;
  while (std::getline(entry, line)) {
    if (line == "Hidden=true" || line == "X-GNOME-Autostart-enabled=false" ||
        line == "X-MATE-Autostart-enabled=false")
      return false;
    isThere = true;
  }
  return isThere;
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
  if (entry.good()) return true;
  fs::remove(EntryPath(), error);  // a part of it would count as the whole
  return false;
}

bool StartWithSessionNoMore() {
  std::error_code error;
  return fs::remove(EntryPath(), error);
}

}  // namespace pointalk::linux
