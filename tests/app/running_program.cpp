#include "tests/app/running_program.h"

namespace pointalk {

RunningProgram::RunningProgram(std::string_view script) : simulated(script), mouse(watched.Get()) {
  machine.setup.files[u"current\\DidWarn.flg"] = u"x";
}

RunningProgram::~RunningProgram() = default;

void RunningProgram::Start() {
  mouse.Form_Load();
  Heard();
}

void RunningProgram::Tick(int times) {
  for (int i = 0; i < times; ++i) {
    machine.Pass(30'000);
    if (TimerEnabled()) mouse.Timer1_Timer();
  }
}

void RunningProgram::MoveTo(Point place) {
  machine.pointer = place;
  Tick();
}

std::string RunningProgram::Heard() {
  const std::string& all = simulated.transcript();
  std::string fresh = all.substr(heard);
  heard = all.size();
  return fresh;
}

}  // namespace pointalk
