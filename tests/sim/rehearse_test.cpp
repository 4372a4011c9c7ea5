#include "sim/rehearse.h"

#include <gtest/gtest.h>

#include <sstream>

namespace pointalk::sim {
namespace {

std::string Lines(const std::string& scripts) {
  std::istringstream in(scripts);
  std::ostringstream out;
  RehearseLines(in, out);
  return out.str();
}

TEST(Rehearse, GivesATranscriptOrOneLineOfError) {
  const Rehearsed good = Rehearse(R"({"steps": [{"wait": 1}]})");
  EXPECT_TRUE(good.valid);
  EXPECT_EQ(good.text, "> {\"wait\":1}\n");
  const Rehearsed bad = Rehearse(R"({"steps": [{"wait": "1\n2"}]})");
  EXPECT_FALSE(bad.valid);
  EXPECT_EQ(bad.text, "steps[0].wait: must be a number");
  EXPECT_EQ(Rehearse("{}").text, "");
}

TEST(Rehearse, AnErrorThatShowsInTheRunLeavesNothingOfTheTranscript) {
  const Rehearsed bad = Rehearse(
      R"({"machine": {"files": {"current\\DidWarn.flg": ""}}, "steps": [{"start": true}, {"start": true}]})");
  EXPECT_FALSE(bad.valid);
  EXPECT_EQ(bad.text, "steps[1].start: starts the program while it runs");
}

TEST(Rehearse, KeysWithLineEndsStayOnOneLine) {
  EXPECT_EQ(Rehearse("{\"a\\nb\": 1}").text, "[\"a\\nb\"]: unknown key");
}

TEST(RehearseLines, GoesOnAfterAnError) {
  EXPECT_EQ(Lines("{\"steps\": [{\"wait\": 1}]}\n{\"x\": 1}\n{\"steps\": [{\"wait\": 2}]}\n"),
            "> {\"wait\":1}\n==\n! x: unknown key\n==\n> {\"wait\":2}\n==\n");
}

TEST(RehearseLines, AnEmptyLineIsABadScript) {
  const std::string transcripts = Lines("\n{}\n");
  EXPECT_EQ(transcripts.find("! line 1, column 1: "), 0u);
  EXPECT_EQ(transcripts.substr(transcripts.find('\n')), "\n==\n==\n");
}

TEST(RehearseLines, TakesCarriageReturnsAndALastLineWithoutEnd) {
  EXPECT_EQ(Lines("{}\r\n{\"steps\": [{\"wait\": 1}]}"), "==\n> {\"wait\":1}\n==\n");
  EXPECT_EQ(Lines(""), "");
}

}  // namespace
}  // namespace pointalk::sim
