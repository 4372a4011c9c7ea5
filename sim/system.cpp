#include "sim/system.h"

#include <algorithm>

#include "sim/code_page.h"

namespace pointalk::sim {

std::optional<SystemVersion> SimSystem::Version() {
  return machine_.setup.windows95 ? SystemVersion{1, 4, 0} : SystemVersion{2, 5, 1};
}

// Every path of this machine is short already.
Text SimSystem::ShortPath(TextView path, int capacity) {
  if (machine_.setup.shortPathFails) return {};
  return ThroughAnsi(path.substr(0, static_cast<std::size_t>(std::max(capacity, 0))));
}

bool SimSystem::SetClipboard(TextView text) {
  if (machine_.setup.clipboardFails) return false;
  machine_.clipboard = ThroughAnsi(text);
  machine_.Record("clipboard", machine_.clipboard);
  return true;
}

bool SimSystem::ShellOpen(TextView operation, TextView file, TextView parameters, TextView directory,
                          int show) {
  if (machine_.setup.shellFails) return false;
  machine_.Record("shell", ThroughAnsi(operation), ThroughAnsi(file), ThroughAnsi(parameters),
                  ThroughAnsi(directory), show);
  return true;
}

}  // namespace pointalk::sim
