// Steps, runs and ends as the player carries them out on the real program.
#include "sim/player.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "sim/script_error.h"

namespace pointalk::sim {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;

// A machine on which the program starts with few words and no question.
constexpr std::string_view kMachine = R"("machine": {"files": {"current\\DidWarn.flg": "x"}})";

std::string Play(const std::string& steps, const std::string& more = "") {
  return Player(ReadScript("{" + std::string(kMachine) + more + ", \"steps\": [" + steps + "]}")).Play();
}

std::string ErrorOf(const std::string& steps, const std::string& more = "") {
  try {
    return Play(steps, more);
  } catch (const ScriptError& error) {
    return error.message;
  }
}

// The lines after the echo of the step with that number, from 0, up to the next echo.
std::vector<std::string> EffectsOf(std::size_t step, const std::string& transcript) {
  std::vector<std::string> effects;
  std::size_t echoes = 0;
  for (std::size_t start = 0; start < transcript.size();) {
    const std::size_t end = transcript.find('\n', start);
    const std::string line = transcript.substr(start, end - start);
    if (line.starts_with("> ")) {
      ++echoes;
    } else if (echoes == step + 1) {
      effects.push_back(line);
    }
    start = end + 1;
  }
  return effects;
}

TEST(Player, WithoutAProgramOnlySomeStepsHaveAnEffect) {
  EXPECT_EQ(
      Play(R"({"tick": 3}, {"tapKey": "shift"}, {"button": "left", "down": true}, {"hook": 513},
                    {"choose": "mnuVoiceMute"}, {"click": "form"}, {"close": true}, {"kill": true},
                    {"show": ["memory", "clipboard", "registry", "files"]})"),
      "> {\"tick\":3}\n> {\"tapKey\":\"shift\"}\n> {\"button\":\"left\",\"down\":true}\n> {\"hook\":513}\n"
      "> {\"choose\":\"mnuVoiceMute\"}\n> {\"click\":\"form\"}\n> {\"close\":true}\n> {\"kill\":true}\n"
      "> {\"show\":[\"memory\",\"clipboard\",\"registry\",\"files\"]}\n"
      "memory 0\nclipboard \"\"\nfile \"current\\\\DidWarn.flg\" \"x\"\n");
}

TEST(Player, FilesAreWrittenAndRemovedAlsoReadOnlyOnes) {
  EXPECT_EQ(
      EffectsOf(1, Play(R"({"files": {"program\\b": "\u0416", "current\\DidWarn.flg": null, "none": null,
                                            "program\\a": ""}},
                                 {"show": ["files"]})",
                        "")),
      (std::vector<std::string>{"file \"program\\\\a\" \"\"", "file \"program\\\\b\" \"\xD0\x96\""}));
}

TEST(Player, NoTimePassesForTicksWithoutAProgram) {
  Player player(ReadScript(R"({"steps": [{"tick": 1000}]})"));
  EXPECT_EQ(player.Play(), "> {\"tick\":1000}\n");
}

TEST(Player, AProgramStartsMinimisedAndIsKilledSilently) {
  const std::string transcript = Play(R"({"start": true}, {"kill": true}, {"tick": 5}, {"kill": true})");
  EXPECT_THAT(EffectsOf(0, transcript), ::testing::Contains("window minimised"));
  EXPECT_THAT(EffectsOf(1, transcript), ElementsAre("killed"));
  EXPECT_THAT(EffectsOf(2, transcript), ElementsAre());
  EXPECT_THAT(EffectsOf(3, transcript), ElementsAre());
}

TEST(Player, AFormThatIsUnloadedEndsTheProcess) {
  const std::vector<std::string> effects = EffectsOf(1, Play(R"({"start": true}, {"close": true})"));
  ASSERT_FALSE(effects.empty());
  EXPECT_EQ(effects.front(), "write \"program\\\\status.txt\" \"stopped\\r\\n\"");
  EXPECT_EQ(effects.back(), "end");
}

TEST(Player, AProgramThatEndsItselfIsGoneForTheRestOfItsTicks) {
  const std::string transcript = Play(
      R"({"start": true}, {"answers": ["yes"]}, {"choose": "mnuFileExit"}, {"tick": 9}, {"close": true})");
  EXPECT_EQ(EffectsOf(2, transcript).back(), "end");
  EXPECT_THAT(EffectsOf(3, transcript), ElementsAre());
  EXPECT_THAT(EffectsOf(4, transcript), ElementsAre());
}

TEST(Player, ADeadlyQueryKillsTheProgramAndItCanBeStartedAgain) {
  const std::string transcript =
      Play(R"({"start": true}, {"pointer": [500, 500]}, {"tick": 4}, {"tick": 1},
                                         {"objects": []}, {"answers": ["no"]}, {"start": true}, {"tick": 1})",
           R"(, "windows": [{"id": 1, "class": "Box", "rect": [450, 450, 600, 600]}],
                                         "objects": [{"rect": [450, 450, 600, 600], "kills": true}])");
  EXPECT_EQ(EffectsOf(2, transcript).back(), "killed");
  EXPECT_THAT(EffectsOf(3, transcript), ElementsAre());
  EXPECT_THAT(EffectsOf(6, transcript), ::testing::Contains("window minimised"));
  EXPECT_THAT(transcript, HasSubstr("Is that because Pointalk crashed?"));
}

TEST(Player, AStartBeginsAnewWithEnginesPortAndMemory) {
  const std::string transcript =
      Play(R"({"start": true}, {"choose": "mnuMidiOnOff"}, {"choose": "mnuVoiceSpeedUp"},
                                         {"kill": true}, {"answers": ["no"]}, {"start": true}, {"show": ["memory"]},
                                         {"choose": "mnuMidiOnOff"})",
           "");
  EXPECT_THAT(EffectsOf(1, transcript), ::testing::Contains("check mnuMidiOnOff off"));
  EXPECT_THAT(EffectsOf(5, transcript), ::testing::Contains("midi open 0"));
  EXPECT_THAT(EffectsOf(5, transcript), ::testing::Contains("window minimised"));
  EXPECT_THAT(EffectsOf(6, transcript), ElementsAre("memory 0"));
  EXPECT_THAT(EffectsOf(7, transcript), ::testing::Contains("check mnuMidiOnOff off"));
}

TEST(Player, ButtonsReportToTheHookAndHookStepsReportAnything) {
  const std::string transcript = Play(R"({"start": true}, {"button": "left", "down": true}, {"tick": 8},
                                         {"button": "left", "down": false}, {"hook": 516}, {"tick": 8})");
  EXPECT_THAT(EffectsOf(2, transcript), ::testing::Contains("sapi5 speak 3 \"Click\""));
  EXPECT_THAT(EffectsOf(5, transcript), ::testing::Contains("sapi5 speak 3 \"Right Click\""));
}

TEST(Player, WaitingAnswersOutliveAProgram) {
  const std::string transcript = Play(
      R"({"answers": ["yes"]}, {"start": true}, {"kill": true}, {"start": true}, {"choose": "mnuFileExit"})");
  EXPECT_THAT(EffectsOf(3, transcript), ::testing::Contains(HasSubstr("-> 6")));
  EXPECT_THAT(EffectsOf(4, transcript), Not(::testing::Contains("end")));
}

TEST(Player, SaysWhichStepIsWrongWhenThatShowsOnlyInTheRun) {
  EXPECT_EQ(ErrorOf(R"({"start": true}, {"start": true})"),
            "steps[1].start: starts the program while it runs");
  EXPECT_EQ(ErrorOf(R"({"start": true}, {"answers": ["=x"]}, {"choose": "mnuFileExit"})"),
            "steps[2].choose: a message box gets an answer that is typed text");
  EXPECT_EQ(ErrorOf(R"({"start": true}, {"answers": ["yes"]}, {"choose": "mnuVoiceVolume"})"),
            "steps[2].choose: an input box gets an answer that is neither typed text nor cancel");
}

TEST(Player, AskingWithoutEndIsAnError) {
  try {
    Player(ReadScript(R"({"machine": {"sapi4": {}}, "steps": [{"start": true}]})")).Play();
    FAIL() << "the question about the engines is asked until it is answered";
  } catch (const ScriptError& error) {
    EXPECT_EQ(error.message, "steps[0].start: asks 100 questions for which there is no answer");
  }
}

}  // namespace
}  // namespace pointalk::sim
