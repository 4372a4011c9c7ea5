#include "sim/script.h"

#include <cmath>

#include "sim/script_node.h"
#include "sim/script_reader.h"

namespace pointalk::sim {

Script ReadScript(std::string_view source) {
  const Json json = ParseJson(source);
  const ScriptNode root(json);
  Script script;
  std::optional<ScriptNode> steps;
  const std::size_t members = root.MemberCount();
  for (std::size_t i = 0; i < members; ++i) {
    const ScriptNode value = root.Member(i);
    if (value.KeyWord() == "machine") {
      script.machine = ReadMachine(value);
    } else if (value.KeyWord() == "windows") {
      script.windows = ReadWindows(value);
    } else if (value.KeyWord() == "objects") {
      script.objects = ReadObjects(value);
    } else if (value.KeyWord() == "steps") {
      steps = value;
    } else {
      value.Fail("unknown key");
    }
  }
  if (steps) {
    std::set<WindowHandle> windows;
    for (const WindowFields& window : script.windows) windows.insert(window.id);
    script.steps = ReadSteps(*steps, windows);
  }
  return script;
}

std::int64_t DayMicroseconds(double microseconds) {
  constexpr double kDay = 86'400e6;
  return static_cast<std::int64_t>(std::fmod(std::nearbyint(microseconds), kDay));
}

}  // namespace pointalk::sim
