// Every call of the platform fails once: nothing crashes, nothing hangs, and the next healthy tick speaks
// again.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "sim/player.h"
#include "sim/script.h"
#include "sim/script_error.h"
#include "tests/support/watched_platform.h"

namespace pointalk::sim {
namespace {

// The clock, and the panel's own state, have no failure to report.
bool CanFail(std::string_view call) {
  return !call.starts_with("Clock::") && call != "Panel::TimerEnabled" && call != "Panel::MenuChecked";
}

// Counts the calls that can fail, and lets one of them fail.
class OneFault final : public testing::Watcher {
 public:
  explicit OneFault(int failing) : failing_(failing) {}

  bool Enter(const char* call) override {
    ++calls;
    return !CanFail(call) || ++failable != failing_;
  }
  void Leave() override {}

  int calls = 0;
  int failable = 0;

 private:
  int failing_;
};

constexpr int kMostCalls = 50'000;
// Of each rehearsal's calls; POINTALK_SWEEP in the environment has all of them tried.
constexpr int kTried = 10;

// A button that no script has, in front of everything, and two ticks over it. The Shift before is what the
// user is told to press when a crash report is not made.
constexpr std::string_view kHealthyWindow =
    R"({"id":4000000000,"class":"Button","title":"Healthy","rect":[0,0,1024,768],"visible":false})";
constexpr std::string_view kHealthySteps =
    R"({"key":"control","down":false},{"key":"shift","down":true},{"pointer":[511,257]},{"tick":2},)"
    R"({"key":"shift","down":false},{"objects":[]},)"
    R"({"change":{"id":4000000000,"visible":true}},{"pointer":[611,307]},{"tick":2},{"pointer":[411,207]},{"tick":2})";

// The script with the healthy button at its end.
std::string WithHealthyEnd(std::string script) {
  const auto windows = script.find("\"windows\"");
  if (windows == std::string::npos) {
    script.insert(script.find('{') + 1, "\"windows\":[" + std::string(kHealthyWindow) + "],");
  } else {
    const auto open = script.find('[', windows);
    const auto next = script.find_first_not_of(" \r\n\t", open + 1);
    // In front of the others in the list would lie below them, so the list is closed behind it.
    int depth = 1;
    std::size_t at = open + 1;
    for (bool inText = false; depth > 0; ++at) {
      if (script[at] == '\\') {
        ++at;
      } else if (script[at] == '"') {
        inText = !inText;
      } else if (!inText) {
        depth += script[at] == '[' ? 1 : script[at] == ']' ? -1 : 0;
      }
    }
    script.insert(at - 1, (script[next] == ']' ? "" : ",") + std::string(kHealthyWindow));
  }
  const auto last = script.rfind(']');
  return script.insert(last, "," + std::string(kHealthySteps));
}

struct Outcome {
  int calls = 0;
  int failable = 0;
  std::string transcript;  // empty when the fault made the script's answers the wrong ones
};

Outcome PlayWithFault(const Script& script, int failing) {
  OneFault fault(failing);
  std::vector<std::unique_ptr<testing::WatchedPlatform>> fronts;
  Outcome outcome;
  try {
    Player player(script, [&](const Platform& seam) {
      fronts.push_back(std::make_unique<testing::WatchedPlatform>(seam, fault));
      return fronts.back()->Get();
    });
    outcome.transcript = player.Play();
  } catch (const ScriptError&) {
  }
  outcome.calls = fault.calls;
  outcome.failable = fault.failable;
  return outcome;
}

// By itself or behind a prefix that was waiting.
bool Heard(const std::string& transcript) { return transcript.find("Healthy\"\n") != std::string::npos; }

bool Ended(const std::string& transcript) {
  return transcript.find("\nend\n") != std::string::npos ||
         transcript.find("\nkilled\n") != std::string::npos;
}

std::vector<std::filesystem::path> Rehearsals() {
  std::vector<std::filesystem::path> found;
  const std::filesystem::path folder = POINTALK_SOURCE_DIR "/tests/rehearsals";
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
    if (entry.path().extension() == ".json") found.push_back(entry.path());
  }
  std::sort(found.begin(), found.end());
  return found;
}

class FaultSweep : public ::testing::TestWithParam<std::filesystem::path> {};

TEST_P(FaultSweep, SpeaksAgain) {
  std::ifstream file(GetParam(), std::ios::binary);
  const std::string source((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
  Outcome plain;
  try {
    plain = PlayWithFault(ReadScript(source), 0);
  } catch (const ScriptError&) {
  }
  if (plain.transcript.empty()) GTEST_SKIP() << "the script is there for its error";
  if (plain.calls > kMostCalls) GTEST_SKIP() << "the calibration runs out, which takes too long to repeat";
  const Script script = ReadScript(WithHealthyEnd(source));
  if (!Heard(PlayWithFault(script, 0).transcript)) GTEST_SKIP() << "the program is silent at the end";
  const bool all = std::getenv("POINTALK_SWEEP") != nullptr;
  const int stride = all ? 1 : std::max(1, (plain.failable + kTried - 1) / kTried);
  RecordProperty("faults", (plain.failable + stride - 1) / stride);
  for (int failing = 1; failing <= plain.failable; failing += stride) {
    const Outcome outcome = PlayWithFault(script, failing);
    if (outcome.transcript.empty() || Ended(outcome.transcript)) continue;
    EXPECT_TRUE(Heard(outcome.transcript)) << "call " << failing << " of " << plain.failable << "\n"
                                           << outcome.transcript;
  }
}

std::string NameOf(const ::testing::TestParamInfo<std::filesystem::path>& info) {
  std::string name = info.param.stem().string();
  std::replace_if(
      name.begin(), name.end(), [](unsigned char character) { return std::isalnum(character) == 0; }, '_');
  return name;
}

INSTANTIATE_TEST_SUITE_P(Rehearsals, FaultSweep, ::testing::ValuesIn(Rehearsals()), NameOf);

}  // namespace
}  // namespace pointalk::sim
