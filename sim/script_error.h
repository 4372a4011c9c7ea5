// What is wrong with a script, and where.
#pragma once

#include <string>

namespace pointalk::sim {

// Thrown where the script is found to be wrong. Not a std::exception: some errors show only while the program
// runs, and must pass its core, which catches those.
struct ScriptError {
  std::string message;  // one line: the place, a colon and what is wrong there
};

}  // namespace pointalk::sim
