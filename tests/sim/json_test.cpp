#include "sim/json.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "sim/script_error.h"

namespace pointalk::sim {
namespace {

std::string Echo(std::string_view source) {
  std::string out;
  AppendCompact(ParseJson(source), out);
  return out;
}

std::string JsonErrorOf(std::string_view source) {
  try {
    ParseJson(source);
  } catch (const ScriptError& error) {
    return error.message;
  }
  return "none";
}

TEST(Json, KeepsTheOrderOfKeysAndTheSpellingOfNumbers) {
  EXPECT_EQ(Echo(R"( { "b" : 0.50 , "a" : [ 1e3 , -0 , -0.0, 1E+2, 12 , -7 ] , "c" : { } , "d":[ ] } )"),
            R"({"b":0.50,"a":[1e3,-0,-0.0,1E+2,12,-7],"c":{},"d":[]})");
  EXPECT_EQ(Echo("18446744073709551615"), "18446744073709551615");
  EXPECT_EQ(Echo("18446744073709551616"), "18446744073709551616");
  EXPECT_EQ(Echo("1e-999"), "1e-999");
}

TEST(Json, EscapesOnlyQuotesBackslashesAndControls) {
  EXPECT_EQ(Echo(R"("\"\\\/\b\f\n\r\t\u0000\u001F\u007f\u00e9\u20AC")"),
            "\"\\\"\\\\/\\b\\f\\n\\r\\t\\u0000\\u001f\x7F\xC3\xA9\xE2\x82\xAC\"");
}

TEST(Json, WritesTheThreeWords) { EXPECT_EQ(Echo("[true, false, null]"), "[true,false,null]"); }

TEST(Json, RefusesWhatIsNotJson) {
  const std::string_view bad[] = {"",
                                  "{",
                                  "[1,]",
                                  "{\"a\":1,}",
                                  "01",
                                  "+1",
                                  ".5",
                                  "1.",
                                  "nul",
                                  "'a'",
                                  "{} {}",
                                  "\"\n\"",
                                  "\"\\x\"",
                                  "\"\\ud800\"",
                                  "\"\\udc00\"",
                                  "// a\n{}",
                                  "\"\\u12\"",
                                  "1e999",
                                  "\"\xFF\"",
                                  "\"\xC0\x80\"",
                                  "\"\xED\xA0\x80\"",
                                  "\"\xE2\x82\"",
                                  "NaN",
                                  "\x01"};
  for (const std::string_view source : bad) {
    const std::string error = JsonErrorOf(source);
    EXPECT_EQ(error.find("line "), 0u) << source << ": " << error;
    EXPECT_EQ(error.find('\n'), std::string::npos) << source;
    for (const char c : error) EXPECT_TRUE(c >= ' ' && c <= '~') << source;
  }
}

TEST(Json, RefusesByteOrderMarksAndNulBytes) {
  EXPECT_EQ(JsonErrorOf("\xEF\xBB\xBF{}"), "line 1, column 1: a byte order mark");
  EXPECT_EQ(JsonErrorOf(std::string_view("{}\n \0", 5)), "line 2, column 2: a NUL byte");
}

TEST(Json, TellsTheLineAndTheColumn) {
  EXPECT_EQ(JsonErrorOf("{\n  \"a\": ?}").find("line 2, column 8: "), 0u);
}

TEST(Json, RefusesEndlessNesting) {
  EXPECT_EQ(JsonErrorOf(std::string(1'000'000, '[')), "script: lists and objects nest too deeply");
}

}  // namespace
}  // namespace pointalk::sim
