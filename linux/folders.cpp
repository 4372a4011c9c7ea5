#include "linux/folders.h"

#include <pwd.h>
#include <starting_settings.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <system_error>

namespace pointalk::linux {
namespace {

namespace fs = std::filesystem;

// A relative path means nothing there and is ignored.
fs::path FolderFrom(const char* variable) {
  const char* const value = std::getenv(variable);
  const fs::path path = value == nullptr ? "" : value;
  return path.is_absolute() ? path : fs::path();
}

// Some sessions start programs without the variable.
fs::path Home() {
  fs::path named = FolderFrom("HOME");
  if (!named.empty()) return named;
  const passwd* const user = getpwuid(getuid());
  return user == nullptr || user->pw_dir == nullptr ? "/" : user->pw_dir;
}

}  // namespace

fs::path ConfigHome() {
  fs::path named = FolderFrom("XDG_CONFIG_HOME");
  return named.empty() ? Home() / ".config" : named;
}

fs::path ProgramFolderPath() { return ConfigHome() / "pointalk"; }

bool EnterProgramFolder() {
  const fs::path folder = ProgramFolderPath();
  std::error_code error;
  const bool made = fs::create_directories(folder, error);
  if (made) std::ofstream(folder / "PTK.ini", std::ios::binary) << kStartingSettings;
  fs::current_path(folder, error);
  if (!error) return true;
  fs::current_path("/", error);  // nothing is left in a folder where the user happens to be
  return false;
}

}  // namespace pointalk::linux
