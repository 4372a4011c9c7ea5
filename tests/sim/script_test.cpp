// What a script may hold, and what is said of one that may not.
#include "sim/script.h"

#include <gtest/gtest.h>

#include <string>

#include "sim/script_error.h"

namespace pointalk::sim {
namespace {

std::string ScriptErrorOf(std::string_view source) {
  try {
    ReadScript(source);
  } catch (const ScriptError& error) {
    return error.message;
  }
  return "none";
}

TEST(Script, LeavesEverythingAtItsDefault) {
  const Script script = ReadScript("{}");
  EXPECT_EQ(script.machine.screenWidth, 1024);
  EXPECT_EQ(script.machine.screenHeight, 768);
  EXPECT_EQ(script.machine.clock, 36'000'000'000);
  EXPECT_EQ(script.machine.spinMicroseconds, 1000);
  EXPECT_EQ(script.machine.midiDevices, 1u);
  EXPECT_EQ(script.machine.sapi5->voices.size(), 3u);
  EXPECT_FALSE(script.machine.sapi4);
  EXPECT_TRUE(script.windows.empty() && script.objects.empty() && script.steps.empty());
  const Script engines = ReadScript(R"({"machine": {"sapi5": {"volume": 5}, "sapi4": {}}})");
  EXPECT_EQ(engines.machine.sapi5->voices.size(), 3u);
  EXPECT_EQ(engines.machine.sapi4->speed, 150);
}

TEST(Script, TakesWholeNumbersHoweverTheyAreWritten) {
  const Script script = ReadScript(R"({"steps": [{"tick": 1e3}, {"tick": 2.0}, {"pointer": [-0, -7.0]}]})");
  EXPECT_EQ(std::get<TickStep>(script.steps[0].action).times, 1000);
  EXPECT_EQ(std::get<TickStep>(script.steps[1].action).times, 2);
  EXPECT_EQ(std::get<PointerStep>(script.steps[2].action).place, (Point{0, -7}));
}

TEST(Script, EchoesAStepAsItIsWritten) {
  const Script script = ReadScript(R"({"steps": [ {"down" : true, "key":"alt"}, {"wait": 0.50},
    {"files": {"z": null, "\u0061": "\u00e9\t"}}, {"answers": ["=\u20ac\/"]} ]})");
  EXPECT_EQ(script.steps[0].echo, R"({"down":true,"key":"alt"})");
  EXPECT_EQ(script.steps[1].echo, R"({"wait":0.50})");
  EXPECT_EQ(script.steps[2].echo, "{\"files\":{\"z\":null,\"a\":\"\xC3\xA9\\t\"}}");
  EXPECT_EQ(script.steps[3].echo, "{\"answers\":[\"=\xE2\x82\xAC/\"]}");
}

struct BadScript {
  const char* source;
  const char* message;
};

constexpr BadScript kBadShapes[] = {
    {"[]", "script: must be an object"},
    {"{\"step\": []}", "step: unknown key"},
    {"{\"steps\": [], \"steps\": []}", "script: has the key \"steps\" twice"},
    {"{\"a b\": 1}", "[\"a b\"]: unknown key"},
    {"{\"steps\": {}}", "steps: must be a list"},
    {"{\"steps\": [5]}", "steps[0]: must be an object"},
    {"{\"steps\": [{}]}", "steps[0]: must be one step"},
    {"{\"steps\": [{\"down\": true}]}", "steps[0]: must be one step"},
    {"{\"steps\": [{\"tick\": 1, \"wait\": 1}]}", "steps[0]: must be one step"},
    {"{\"steps\": [{\"tick\": 1}, {\"jump\": 1}]}", "steps[1].jump: unknown step"},
    {"{\"steps\": [{\"tick\": 1, \"down\": true}]}", "steps[0].down: unknown key"},
    {"{\"steps\": [{\"tick\": 1, \"tick\": 1}]}", "steps[0]: has the key \"tick\" twice"},
    {"{\"windows\": [{\"id\": 1, \"menu\": {\"items\": [{\"items\": [{\"txt\": 1}]}]}}]}",
     "windows[0].menu.items[0].items[0].txt: unknown key"},
    {"{\"machine\": {\"files\": {\"a\": \"\", \"a\": \"\"}}}", "machine.files: has the key \"a\" twice"},
    {"{\"machine\": null}", "machine: must be an object"},
};

constexpr BadScript kBadMachines[] = {
    {"{\"machine\": {\"screen\": [1]}}", "machine.screen: must be [width, height]"},
    {"{\"machine\": {\"screen\": [1, 0]}}", "machine.screen[1]: must be a whole number from 1 to 2147483647"},
    {"{\"machine\": {\"clock\": 86400}}", "machine.clock: must be below 86400"},
    {"{\"machine\": {\"clock\": -1}}", "machine.clock: must not be negative"},
    {"{\"machine\": {\"spinMilliseconds\": -0.1}}", "machine.spinMilliseconds: must not be negative"},
    {"{\"machine\": {\"windows95\": 1}}", "machine.windows95: must be true or false"},
    {"{\"machine\": {\"midiDevices\": 1.5}}",
     "machine.midiDevices: must be a whole number from 0 to 4294967295"},
    {"{\"machine\": {\"midiOpen\": [0, -1]}}",
     "machine.midiOpen[1]: must be a whole number from 0 to 4294967295"},
    {"{\"machine\": {\"midiOpen\": 0}}", "machine.midiOpen: must be a list"},
    {"{\"machine\": {\"sapi5\": {\"voices\": [1]}}}", "machine.sapi5.voices[0]: must be a text"},
    {"{\"machine\": {\"sapi5\": {\"rate\": \"3\"}}}", "machine.sapi5.rate: must be a number"},
    {"{\"machine\": {\"sapi5\": false}}", "machine.sapi5: must be an object"},
    {"{\"machine\": {\"sapi4\": {\"find\": {\"a\": \"1\"}}}}", "machine.sapi4.find.a: must be a number"},
    {"{\"machine\": {\"files\": {\"a\": null}}}", "machine.files.a: must be a text"},
    {"{\"machine\": {\"files\": {\"a\": \"\\u0000\"}}}", "machine.files.a: holds a NUL"},
    {"{\"machine\": {\"files\": {\"a\\\\b\": \"\\ud83d\\ude00\"}}}",
     "machine.files[\"a\\\\b\"]: holds a character beyond U+FFFF"},
    {"{\"machine\": {\"files\": {\"\\u0000\": \"\"}}}", "machine.files[\"\\u0000\"]: holds a NUL"},
    {"{\"machine\": {\"files\": {\"\xF0\x9F\x98\x80\": \"\"}}}",
     "machine.files[\"\xF0\x9F\x98\x80\"]: holds a character beyond U+FFFF"},
    {"{\"machine\": {\"readOnly\": \"a\"}}", "machine.readOnly: must be a list"},
    {"{\"machine\": {\"registry\": {\"HKLM\\\\A\": {}}}}",
     "machine.registry[\"HKLM\\\\A\"]: must begin with the long name of a root key"},
    {"{\"machine\": {\"registry\": {\"HKEY_USERS\\\\\": {}}}}",
     "machine.registry[\"HKEY_USERS\\\\\"]: has an empty part in its path"},
    {"{\"machine\": {\"registry\": {\"HKEY_USERS\": {\"a\": true}}}}",
     "machine.registry[\"HKEY_USERS\"].a: must be a text or a number"},
    {"{\"machine\": {\"registry\": {\"HKEY_USERS\": {\"a\": -1}}}}",
     "machine.registry[\"HKEY_USERS\"].a: must be a whole number from 0 to 4294967295"},
    {"{\"machine\": {\"colour\": 1}}", "machine.colour: unknown key"},
};

constexpr BadScript kBadWindows[] = {
    {"{\"windows\": [{}]}", "windows[0]: has no id"},
    {"{\"windows\": [{\"id\": 0}]}", "windows[0].id: must be a whole number from 1 to 4294967295"},
    {"{\"windows\": [{\"id\": 1}, {\"id\": 1}]}", "windows[1]: has the id of another window"},
    {"{\"windows\": [{\"id\": 1, \"rect\": [1, 2, 3]}]}",
     "windows[0].rect: must be [left, top, right, bottom]"},
    {"{\"windows\": [{\"id\": 1, \"rect\": [1, 2, 3, 3000000000]}]}",
     "windows[0].rect[3]: must be a whole number from -2147483648 to 2147483647"},
    {"{\"windows\": [{\"id\": 1, \"listBox\": {\"itemHeight\": 0}}]}",
     "windows[0].listBox.itemHeight: must be a whole number from 1 to 2147483647"},
    {"{\"windows\": [{\"id\": 1, \"listBox\": {\"top\": -1}}]}",
     "windows[0].listBox.top: must be a whole number from 0 to 2147483647"},
    {"{\"windows\": [{\"id\": 1, \"edit\": {\"charWidth\": 0}}]}",
     "windows[0].edit.charWidth: must be a whole number from 1 to 2147483647"},
    {"{\"windows\": [{\"id\": 1, \"richEdit\": {\"lineHeight\": 0}}]}",
     "windows[0].richEdit.lineHeight: must be a whole number from 1 to 2147483647"},
    {"{\"windows\": [{\"id\": 1, \"edit\": {\"password\": 1}}]}",
     "windows[0].edit.password: must be true or false"},
    {"{\"windows\": [{\"id\": 1, \"richEdit\": {\"password\": \"yes\"}}]}",
     "windows[0].richEdit.password: must be true or false"},
    {"{\"windows\": [{\"id\": 1, \"listView\": {\"items\": [\"a\"]}}]}",
     "windows[0].listView.items[0]: must be an object"},
    {"{\"windows\": [{\"id\": 1, \"title\": \"\\u0000\"}]}", "windows[0].title: holds a NUL"},
    {"{\"windows\": [{\"id\": 1, \"listBox\": null}]}", "windows[0].listBox: must be an object"},
    {"{\"objects\": [{\"role\": 9}]}", "objects[0].role: must be a text"},
    {"{\"objects\": [{\"fails\": \"yes\"}]}", "objects[0].fails: must be true or false"},
    {"{\"objects\": [{\"protected\": 1}]}", "objects[0].protected: must be true or false"},
    {"{\"objects\": [{\"colour\": 1}]}", "objects[0].colour: unknown key"},
};

constexpr BadScript kBadSteps[] = {
    {"{\"steps\": [{\"start\": false}]}", "steps[0].start: must be true"},
    {"{\"steps\": [{\"tick\": -1}]}", "steps[0].tick: must be a whole number from 0 to 2147483647"},
    {"{\"steps\": [{\"tick\": 0.5}]}", "steps[0].tick: must be a whole number from 0 to 2147483647"},
    {"{\"steps\": [{\"tick\": \"1\"}]}", "steps[0].tick: must be a number"},
    {"{\"steps\": [{\"tick\": 99999999999999999999}]}",
     "steps[0].tick: must be a whole number from 0 to 2147483647"},
    {"{\"steps\": [{\"wait\": -0.5}]}", "steps[0].wait: must not be negative"},
    {"{\"steps\": [{\"pointer\": [1]}]}", "steps[0].pointer: must be [x, y]"},
    {"{\"steps\": [{\"key\": \"enter\", \"down\": true}]}",
     "steps[0].key: must be one of shift, control, alt"},
    {"{\"steps\": [{\"key\": \"alt\"}]}", "steps[0].key: needs the key down beside it"},
    {"{\"steps\": [{\"key\": \"alt\", \"down\": 1}]}", "steps[0].down: must be true or false"},
    {"{\"steps\": [{\"tapKey\": \"left\"}]}", "steps[0].tapKey: must be one of shift, control, alt"},
    {"{\"steps\": [{\"button\": \"alt\", \"down\": true}]}",
     "steps[0].button: must be one of left, right, middle"},
    {"{\"steps\": [{\"hook\": 4294967296}]}",
     "steps[0].hook: must be a whole number from -2147483648 to 2147483647"},
    {"{\"steps\": [{\"choose\": \"mnuFile\"}]}",
     "steps[0].choose: names no menu entry or button that can be chosen"},
    {"{\"steps\": [{\"choose\": \"Timer1\"}]}",
     "steps[0].choose: names no menu entry or button that can be chosen"},
    {"{\"steps\": [{\"click\": \"button\"}]}", "steps[0].click: must be form"},
    {"{\"steps\": [{\"answers\": \"yes\"}]}", "steps[0].answers: must be a list"},
    {"{\"steps\": [{\"answers\": [\"Yes\"]}]}",
     "steps[0].answers[0]: must be yes, no, ok, cancel, or = and a text"},
    {"{\"steps\": [{\"change\": {\"title\": \"a\"}}]}", "steps[0].change: has no id"},
    {"{\"steps\": [{\"change\": {\"id\": 4}}]}", "steps[0].change: there is no window with this id"},
    {"{\"steps\": [{\"objects\": {}}]}", "steps[0].objects: must be a list"},
    {"{\"steps\": [{\"files\": {\"a\": 1}}]}", "steps[0].files.a: must be a text"},
    {"{\"steps\": [{\"close\": 1}]}", "steps[0].close: must be true"},
    {"{\"steps\": [{\"kill\": null}]}", "steps[0].kill: must be true"},
    {"{\"steps\": [{\"show\": [\"windows\"]}]}",
     "steps[0].show[0]: must be one of files, registry, clipboard, memory"},
};

template <std::size_t count> void ExpectErrors(const BadScript (&rows)[count]) {
  for (const BadScript& row : rows) EXPECT_EQ(ScriptErrorOf(row.source), row.message) << row.source;
}

TEST(Script, RefusesWrongShapes) { ExpectErrors(kBadShapes); }

TEST(Script, RefusesWrongMachines) { ExpectErrors(kBadMachines); }

TEST(Script, RefusesWrongWindowsAndObjects) { ExpectErrors(kBadWindows); }

TEST(Script, RefusesWrongSteps) { ExpectErrors(kBadSteps); }

TEST(Script, OnlyItemsOfListBoxesMayHoldANul) {
  EXPECT_EQ(ScriptErrorOf(R"({"windows": [{"id": 1, "listBox": {"items": ["a\u0000b"]}}],
                        "steps": [{"change": {"id": 1, "listBox": {"items": ["\u0000"]}}}]})"),
            "none");
  EXPECT_EQ(ScriptErrorOf(R"({"windows": [{"id": 1, "listView": {"items": [{"text": "a\u0000b"}]}}]})"),
            "windows[0].listView.items[0].text: holds a NUL");
}

TEST(Script, ACharacterUpToFfffIsTaken) {
  EXPECT_EQ(ScriptErrorOf(R"({"objects": [{"name": "\uFFFF\uFFFE"}]})"), "none");
}

}  // namespace
}  // namespace pointalk::sim
