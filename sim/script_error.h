// What is wrong with a script, and where.
#pragma once

#include <string>

namespace pointalk::sim {

// Thrown by whoever finds the script wrong. No std::exception: one that shows only while the program runs has
// to leave the program's core, which catches those.
struct ScriptError {
  std::string message;  // one line: the place, a colon and what is wrong there
};

}  // namespace pointalk::sim
