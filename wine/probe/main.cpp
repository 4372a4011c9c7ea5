// probe.exe looks at other programs' windows from outside, as a reader does: questions.h lists what it can be
// asked through standard input. Its first line is {"ready": true}; each question gets one line.
#include <windows.h>

#include <objbase.h>

#include <cstdio>
#include <string>
#include <tuple>

#include "wine/probe/questions.h"
#include "wine/target/channel.h"

using pointalk::target::CommandError;
using pointalk::target::CommandLine;
using pointalk::target::JsonObject;

int main() {
  SetProcessDPIAware();  // rectangles in the screen's own pixels
  std::ignore = CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
  pointalk::target::WriteLine(stdout, JsonObject().Flag("ready", true).Line());
  for (std::string text; pointalk::target::ReadLine(text);) {
    std::string reply;
    try {
      const CommandLine line(text);
      if (line.Word(0) == L"quit") break;
      reply = pointalk::probe::Answer(line);
    } catch (const CommandError& error) {
      reply = JsonObject().Text("error", pointalk::target::FromAnsi(error.what())).Line();
    }
    pointalk::target::WriteLine(stdout, reply);
  }
}
