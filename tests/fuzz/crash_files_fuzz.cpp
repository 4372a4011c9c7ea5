// Any bytes as the status file, the class log and the list of learnt classes, parted by two zero bytes.
#include <algorithm>
#include <array>

#include "tests/fuzz/runs.h"

using namespace pointalk;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  sim::Script script = fuzz::SmallScript();
  const Text whole = fuzz::AsCharacters(data, size);
  std::size_t from = 0;
  for (const TextView path :
       {u"program\\status.txt", u"program\\ClassName.txt", u"program\\BadClasses.txt"}) {
    const auto end = std::min(whole.find(u'\0', from), whole.size());
    script.machine.files[Text(path)] = whole.substr(from, end - from);
    from = std::min(end + 1, whole.size());
  }
  sim::WindowFields window;
  window.id = 1;
  window.className = whole.substr(0, 40);
  window.place = sim::Rectangle{0, 0, 500, 500};
  script.windows.push_back(window);
  for (int run = 0; run < 3; ++run) {
    script.steps.push_back(fuzz::Do("start", sim::StartStep{}));
    script.steps.push_back(fuzz::Do("pointer", sim::PointerStep{{100 + run, 100}}));
    script.steps.push_back(fuzz::Do("tick", sim::TickStep{2}));
    script.steps.push_back(fuzz::Do("kill", sim::KillStep{}));
  }
  fuzz::Play(std::move(script));
  return 0;
}
