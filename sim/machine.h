// The simulated machine: everything that stays when the program ends and is started again. What begins anew
// with every start is kept by the seam's own classes.
#pragma once

#include <array>
#include <cstdint>
#include <deque>
#include <string_view>

#include "platform/types.h"
#include "sim/desktop.h"
#include "sim/script.h"
#include "sim/transcript.h"

namespace pointalk::sim {

// Thrown through the program's core when the process ends itself, or is killed by a question that never
// returns. Not a std::exception, which the core would catch.
struct ProgramGone {
  bool killed = false;
};

struct Key {
  bool down = false;
  bool tapped = false;  // pressed and released since its state was last asked for
};

struct Machine {
  // As the script describes it.
  explicit Machine(Script script);

  // Lets time pass.
  void Pass(std::int64_t microseconds);

  // Records an effect of the program; once the program has ended there are none.
  template <typename... Parts> void Record(std::string_view what, const Parts&... parts) {
    if (programRuns) transcript.Add(what, parts...);
  }

  [[noreturn]] void LeaveProgram(bool killed);

  MachineSetup setup;  // the files and the registry in it are those of now
  Desktop desktop;
  std::int64_t clock;  // microseconds since midnight
  Point pointer;
  std::array<Key, 256> keys;  // by virtual key
  Text clipboard;
  std::deque<Answer> answers;   // that dialogs will get
  int unansweredQuestions = 0;  // of this step
  bool programRuns = false;
  Transcript transcript;
};

}  // namespace pointalk::sim
