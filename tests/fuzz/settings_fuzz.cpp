// Any bytes as the settings file: the program starts, plays, saves and starts again.
#include "tests/fuzz/runs.h"

using namespace pointalk;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  sim::Script script = fuzz::SmallScript();
  script.machine.files[u"program\\PTK.ini"] = fuzz::AsCharacters(data, size);
  if (size % 2 == 1) script.machine.sapi4 = sim::Sapi4Setup{};
  if (size % 4 == 3) script.machine.sapi5.reset();
  for (int run = 0; run < 2; ++run) {
    script.steps.push_back(fuzz::Do("start", sim::StartStep{}));
    script.steps.push_back(fuzz::Do("pointer", sim::PointerStep{{700, 100 + run}}));
    script.steps.push_back(fuzz::Do("tick", sim::TickStep{13}));
    script.steps.push_back(fuzz::Do("choose", sim::ChooseStep{u"cmdSpeedUpVoice"}));
    script.steps.push_back(fuzz::Do("close", sim::CloseStep{}));
  }
  fuzz::Play(std::move(script));
  return 0;
}
