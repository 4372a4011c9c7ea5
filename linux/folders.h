// Where the program keeps what belongs to its user.
#pragma once

#include <filesystem>

namespace pointalk::linux {

// $XDG_CONFIG_HOME, or .config in the user's home.
std::filesystem::path ConfigHome();

// The folder that stands for the one that holds the program: settings, status and logs.
std::filesystem::path ProgramFolderPath();

// Makes the program's folder, with a settings file whose volumes can be heard where the folder was not there
// yet, and makes it the current one: what the program keeps in the current directory belongs there too. False
// where that cannot be; then the program runs without keeping anything.
[[nodiscard]] bool EnterProgramFolder();

}  // namespace pointalk::linux
