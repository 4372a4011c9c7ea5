#include "linux/folders.h"

#include <starting_settings.h>

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

}  // namespace

fs::path ConfigHome() {
  fs::path named = FolderFrom("XDG_CONFIG_HOME");
  if (!named.empty()) return named;
  const fs::path home = FolderFrom("HOME");
  return (home.empty() ? fs::path("/") : home) / ".config";
}

fs::path ProgramFolderPath() { return ConfigHome() / "pointalk"; }

bool EnterProgramFolder() {
  const fs::path folder = ProgramFolderPath();
  std::error_code error;
  const bool made = fs::create_directories(folder, error);
  if (made) std::ofstream(folder / "PTK.ini", std::ios::binary) << kStartingSettings;
  fs::current_path(folder, error);
  return !error;
}

}  // namespace pointalk::linux
