#include "linux/started_program.h"

#include <spawn.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <sstream>

extern char** environ;

namespace pointalk::linux {

std::string FindProgram(std::string_view name) {
  const char* const variable = std::getenv("PATH");
  std::istringstream folders(variable == nullptr ? "/usr/bin" : variable);
  for (std::string folder; std::getline(folders, folder, ':');) {
    const std::filesystem::path program = std::filesystem::path(folder) / name;
    if (::access(program.c_str(), X_OK) == 0) return program.string();
  }
  return {};
}

// In a session of its own, so that a terminal that this program was started from does not end it.
std::optional<pid_t> StartProgram(const std::string& path, const std::vector<std::string>& arguments) {
  std::vector<std::string> words{path};
  words.insert(words.end(), arguments.begin(), arguments.end());
  std::vector<char*> pointers;
  for (std::string& word : words) pointers.push_back(word.data());
  pointers.push_back(nullptr);

  posix_spawnattr_t how;
  if (posix_spawnattr_init(&how) != 0) return std::nullopt;
  sigset_t none;
  sigset_t usual;
  sigemptyset(&none);
  sigemptyset(&usual);
  sigaddset(&usual, SIGPIPE);
  posix_spawnattr_setsigmask(&how, &none);
  posix_spawnattr_setsigdefault(&how, &usual);
  posix_spawnattr_setflags(&how, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSID);
  pid_t child = 0;
  const int outcome = posix_spawn(&child, path.c_str(), nullptr, &how, pointers.data(), environ);
  posix_spawnattr_destroy(&how);
  if (outcome != 0) return std::nullopt;
  return child;
}

}  // namespace pointalk::linux
