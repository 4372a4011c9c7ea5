// target.exe stands in for other people's programs: windows of every class that has a reader of its own,
// answering as real ones do or as bad ones might. It is driven through standard input; commands.h lists the
// commands.
//
//   target.exe [--layout NAME]... [--report FILE] [--awareness unaware]
//
// Unaware of the screen's scale, it counts in pixels of its own, which the system enlarges; all rectangles
// are in these then. First comes a JSON line for each window of the layouts, then {"ready": true, "process":
// ID}, then one line for each command. It ends at `quit` or at the end of the input.
#include <windows.h>

#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

#include "wine/target/channel.h"
#include "wine/target/commands.h"
#include "wine/target/controls.h"
#include "wine/target/given_memory.h"
#include "wine/target/layouts.h"

namespace pointalk::target {
namespace {

struct Options {
  std::vector<std::string> layouts;
  const char* report = nullptr;
  bool unaware = false;
};

Options ParseOptions(int count, char** words) {
  Options options;
  for (int i = 1; i < count; i += 2) {
    if (i + 1 == count) throw CommandError(std::string("nothing follows ") + words[i]);
    if (std::strcmp(words[i], "--layout") == 0)
      options.layouts.emplace_back(words[i + 1]);
    else if (std::strcmp(words[i], "--report") == 0)
      options.report = words[i + 1];
    else if (std::strcmp(words[i], "--awareness") == 0 && std::strcmp(words[i + 1], "unaware") == 0)
      options.unaware = true;
    else
      throw CommandError(std::string("unknown option ") + words[i]);
  }
  return options;
}

void SetUp(Commands& commands, const std::vector<std::string>& layouts) {
  for (const std::string& layout : layouts) {
    for (const std::string& line : LayoutLines(layout)) {
      const std::string reply = commands.Run(line);
      if (reply.starts_with(R"({"error")")) throw CommandError(std::string(line).append(": ").append(reply));
    }
  }
}

void Serve(const Options& options) {
  std::FILE* out = options.report ? std::fopen(options.report, "wb") : stdout;
  if (!out) throw CommandError(std::string("cannot write ") + options.report);
  LoadControlClasses();
  WatchGivenMemory();
  Commands commands(options.unaware);
  SetUp(commands, options.layouts);
  for (const std::string& window : commands.Windows()) WriteLine(out, window);
  WriteLine(out, JsonObject().Flag("ready", true).Number("process", GetCurrentProcessId()).Line());
  for (std::string line; !commands.Ended() && ReadLine(line);) WriteLine(out, commands.Run(line));
  // Threads may hang and windows be half destroyed, so there is no orderly shutdown.
  TerminateProcess(GetCurrentProcess(), 0);
}

}  // namespace
}  // namespace pointalk::target

int main(int count, char** words) {
  try {
    pointalk::target::Serve(pointalk::target::ParseOptions(count, words));
  } catch (const pointalk::target::CommandError& error) {
    std::fprintf(stderr, "target: %s\n", error.what());
    return 2;
  }
}
