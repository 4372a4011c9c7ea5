// The program on a simulated machine, with a hand in front of every call that it makes of its platform.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "app/mouse.h"
#include "tests/sim/simulated.h"
#include "tests/support/watched_platform.h"

namespace pointalk {

class RunningProgram final : private testing::Watcher {
 public:
  // The script gives the machine, its windows and objects; the program is started at once.
  explicit RunningProgram(std::string_view script = "{}");
  ~RunningProgram();
  RunningProgram(const RunningProgram&) = delete;
  RunningProgram& operator=(const RunningProgram&) = delete;

  void Start();

  // Ticks of the poll timer as far as it is on.
  void Tick(int times = 1);
  void MoveTo(Point place);
  void Hold(int virtualKey, bool down) { machine.keys[static_cast<std::size_t>(virtualKey)].down = down; }

  bool TimerEnabled() { return simulated.platform.panel.TimerEnabled(); }

  // What the program did since this was last asked for, one line for each effect.
  std::string Heard();

  std::function<void(std::string_view call)> before = [](std::string_view) {};

 private:
  bool Enter(const char* call) override {
    before(call);
    return true;
  }
  void Leave() override {}

  sim::Simulated simulated;
  testing::WatchedPlatform watched{simulated.platform.Seam(), *this};
  std::size_t heard = 0;

 public:
  sim::Machine& machine = simulated.machine;
  Mouse mouse;
};

}  // namespace pointalk
