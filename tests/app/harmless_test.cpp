// What the program sends to other programs, and what it keeps of theirs.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>
#include <sstream>

#include "reader/messages.h"
#include "tests/app/running_program.h"
#include "tests/support/forwarding.h"
#include "tests/support/replaced.h"
#include "text/text_rules.h"

namespace pointalk {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::UnorderedElementsAre;

// A window for each reader, and a run in which the class log is kept.
constexpr std::string_view kWindows = R"({
  "machine": {"files": {"program\\status.txt": "running\r\n"}},
  "windows": [
    {"id": 1, "class": "Folder", "title": "secret folder", "rect": [0, 100, 1000, 700]},
    {"id": 2, "class": "SysListView32", "parent": 1, "process": 7, "rect": [100, 100, 300, 200],
     "listView": {"items": [{"text": "secret label", "icon": [0, 0, 32, 32], "label": [0, 32, 60, 44]}]}},
    {"id": 3, "class": "ListBox", "parent": 1, "rect": [310, 100, 490, 200], "listBox": {"items": ["first", "secret item"]}},
    {"id": 4, "class": "MyTextBox", "parent": 1, "rect": [500, 100, 690, 200], "edit": {"text": "secret line"}},
    {"id": 5, "class": "RichEdit20A", "parent": 1, "rect": [700, 100, 890, 200], "richEdit": {"text": "secret text"}},
    {"id": 6, "class": "Button", "parent": 1, "title": "secret button", "rect": [100, 300, 290, 400]},
    {"id": 7, "class": "Grid", "parent": 1, "title": "secret title", "rect": [300, 300, 490, 400]},
    {"id": 8, "class": "Pane", "parent": 1, "rect": [500, 300, 690, 400],
     "menu": {"items": [{"text": "secret menu", "rect": [500, 300, 690, 320], "items": [
       {"text": "secret entry", "rect": [500, 330, 690, 350]}]}]}}
  ],
  "objects": [
    {"rect": [700, 100, 890, 200], "value": "secret text"},
    {"rect": [500, 360, 690, 400], "name": "secret name", "role": "client", "description": "secret description"}
  ]})";

constexpr Point kPlaces[] = {{110, 110}, {111, 110}, {320, 121}, {510, 105}, {540, 105}, {710, 105},
                             {750, 105}, {110, 310}, {310, 310}, {510, 340}, {510, 380}, {900, 600}};

class RecordingMessages final : public testing::ForwardingControlMessages {
 public:
  using ForwardingControlMessages::ForwardingControlMessages;

  std::optional<std::int32_t> Send(WindowHandle window, std::uint32_t message, std::uint64_t wParam,
                                   std::uint64_t lParam) override {
    sent.insert(message);
    return ForwardingControlMessages::Send(window, message, wParam, lParam);
  }

  std::set<std::uint32_t> sent;
};

// The texts themselves are asked for by WM_GETTEXT, EM_GETLINE and LB_GETTEXT, each by a call of its own.
TEST(OtherPrograms, AreSentQuestionsOnly) {
  sim::Simulated simulated(kWindows);
  simulated.machine.setup.files[u"current\\DidWarn.flg"] = u"x";
  RecordingMessages messages(simulated.platform.messages);
  Mouse mouse(testing::Replaced(simulated.platform.Seam(), messages));
  mouse.Form_Load();
  for (const Point place : kPlaces) {
    simulated.machine.pointer = place;
    mouse.Timer1_Timer();
  }
  EXPECT_THAT(messages.sent,
              UnorderedElementsAre(kWmGetTextLength, kEmLineLength, kEmLineFromChar, kEmCharFromPos,
                                   kLbGetTopIndex, kLbGetTextLen, kLbItemFromPoint, kLvmGetItemCount,
                                   kLvmGetItemA, kLvmSubItemHitTest));
}

TEST(TextsOfOtherPrograms, AreSaidAndNotKept) {
  RunningProgram program(kWindows);
  program.Start();
  for (const Point place : kPlaces) {
    program.MoveTo(place);
    program.MoveTo({place.x + 1, place.y});
    for (const int key : {kKeyControl, kKeyShift}) {
      program.Hold(key, true);
      program.MoveTo(place);
      program.Hold(key, false);
    }
  }
  program.mouse.Form_Terminate();

  std::set<std::string> said;
  std::istringstream lines(program.Heard());
  for (std::string line; std::getline(lines, line);) {
    if (line.starts_with("sapi5 speak"))
      said.insert(line);
    else
      EXPECT_THAT(line, Not(HasSubstr("secret")));
  }
  for (const char* text : {"secret label", "secret item", "secret line", "secret text", "secret button",
                           "secret title", "secret entry", "secret name", "secret description"})
    EXPECT_THAT(said, ::testing::Contains(HasSubstr(text)));

  const auto& files = program.machine.setup.files;
  EXPECT_TRUE(files.contains(u"program\\ClassName.txt"));
  for (const auto& [path, content] : files) EXPECT_FALSE(Contains(content, u"secret"));
}

}  // namespace
}  // namespace pointalk
