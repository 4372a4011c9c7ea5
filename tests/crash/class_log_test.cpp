// The class log while a question about an object is still out, and on disk before the risky calls.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/app/running_program.h"
#include "tests/support/forwarding.h"
#include "tests/support/replaced.h"

namespace pointalk {
namespace {

using ::testing::EndsWith;
using ::testing::HasSubstr;

constexpr std::string_view kLogging = R"({
  "machine": {"files": {"program\\status.txt": "running\r\n"}},
  "windows": [{"id": 2, "class": "Grid", "title": "Sheet", "rect": [300, 100, 400, 120]},
              {"id": 3, "class": "Pane", "title": "Side", "rect": [300, 200, 400, 220]}]})";

// The simulated machine's accessibility, with questions about one window that do not come back.
class SlowAccessibility final : public testing::ForwardingAccessibility {
 public:
  using ForwardingAccessibility::ForwardingAccessibility;

  bool QueryPending(WindowHandle window) override { return window == pending; }

  WindowHandle pending = 0;
};

TEST(ClassLog, KeepsItsMarkWhileTheQueryIsPending) {
  sim::Simulated simulated(kLogging);
  sim::Machine& machine = simulated.machine;
  machine.setup.files[u"current\\DidWarn.flg"] = u"x";
  SlowAccessibility slow(simulated.platform.accessibility);
  Mouse mouse(testing::Replaced(simulated.platform.Seam(), slow));
  mouse.Form_Load();
  const Text& log = machine.setup.files[u"program\\ClassName.txt"];

  slow.pending = 2;
  machine.pointer = {310, 110};
  mouse.Timer1_Timer();
  EXPECT_EQ(log, u"^Grid\r\n");
  EXPECT_THAT(simulated.transcript(), EndsWith("sapi5 speak 3 \"Sheet\"\n"))
      << "it is described all the same";
  mouse.Timer1_Timer();
  EXPECT_EQ(log, u"^Grid\r\n") << "later descriptions keep it too";
  machine.pointer = {310, 210};
  mouse.Timer1_Timer();
  EXPECT_EQ(log, u"Pane\r\n");
  slow.pending = 0;
  machine.pointer = {310, 110};
  mouse.Timer1_Timer();
  EXPECT_EQ(log, u"Grid\r\n");
}

TEST(ClassLog, IsWrittenBeforeTheQueryAndTheReaders) {
  RunningProgram program(kLogging);
  program.Start();
  std::vector<Text> logged;
  program.before = [&](std::string_view call) {
    if (call == "Accessibility::ObjectAt" || call == "ControlMessages::WindowText") {
      logged.push_back(program.machine.setup.files[u"program\\ClassName.txt"]);
    }
  };
  program.MoveTo({310, 110});
  EXPECT_THAT(logged, ::testing::ElementsAre(u"^Grid\r\n", u"Grid\r\n"));
}

TEST(ClassLog, IsNotKeptInAnyOtherRun) {
  RunningProgram program(R"({"windows": [{"id": 2, "class": "Grid", "rect": [300, 100, 400, 120]}]})");
  program.Start();
  program.MoveTo({310, 110});
  EXPECT_FALSE(program.machine.setup.files.contains(u"program\\ClassName.txt"));
  EXPECT_THAT(program.Heard(), HasSubstr("It is eigh grid"));
}

}  // namespace
}  // namespace pointalk
