// The rehearsal player: carries out a script's steps on the program, which runs on a simulated machine.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "sim/machine.h"
#include "sim/script.h"
#include "sim/sim_platform.h"

namespace pointalk {
class Mouse;
}

namespace pointalk::sim {

class Player {
 public:
  // Gives what the program runs on at each start, in place of the platform itself or in front of it.
  using Front = std::function<Platform(const Platform&)>;

  explicit Player(
      Script script, Front front = [](const Platform& seam) { return seam; });
  ~Player();

  Player(const Player&) = delete;
  Player& operator=(const Player&) = delete;

  // Carries out every step and gives the transcript. Throws ScriptError for an error of the script that shows
  // only while it runs.
  const std::string& Play();

 private:
  void CarryOut(const Step& step);

  void Do(const StartStep& step);
  void Do(const TickStep& step);
  void Do(const WaitStep& step);
  void Do(const PointerStep& step);
  void Do(const KeyStep& step);
  void Do(const TapKeyStep& step);
  void Do(const ButtonStep& step);
  void Do(const HookStep& step);
  void Do(const ChooseStep& step);
  void Do(const ClickStep& step);
  void Do(const AnswersStep& step);
  void Do(const ChangeStep& step);
  void Do(const ObjectsStep& step);
  void Do(const FilesStep& step);
  void Do(const CloseStep& step);
  void Do(const KillStep& step);
  void Do(const ShowStep& step);

  void Show(Shown part);
  void ReportMessage(std::int32_t message);

  // Runs a part of the program, which may end in it.
  template <typename Action> void RunProgram(Action action);
  void EndRun(bool killed);

  std::vector<Step> steps_;
  Front front_;
  Machine machine_;
  std::unique_ptr<SimPlatform> platform_;  // of the run that goes on or was the last
  std::unique_ptr<Mouse> mouse_;           // while the program runs
};

}  // namespace pointalk::sim
