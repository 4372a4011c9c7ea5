// Controls of other programs that answer what no control should: nothing of it is read, copied or trusted
// beyond what was asked for, and something is said all the same.
#include <gtest/gtest.h>

#include <map>
#include <vector>

#include "reader/control_readers.h"
#include "reader/edit_readers.h"
#include "reader/list_box_reader.h"
#include "reader/list_view_reader.h"
#include "reader/menu_reader.h"
#include "reader/messages.h"
#include "tests/sim/simulated.h"

namespace pointalk {
namespace {

constexpr std::int32_t kLeast = -2147483647 - 1;
constexpr std::int32_t kMost = 2147483647;
constexpr std::int32_t kStrange[] = {kLeast, -65537, -65536, -2,    -1,    0,     1,
                                     2,      1028,   1029,   65535, 65536, 65537, kMost};

// Answers each message with a number of the test's, and texts with what the test has.
class StrangeMessages final : public ControlMessages {
 public:
  std::optional<std::int32_t> Send(WindowHandle, std::uint32_t message, std::uint64_t,
                                   std::uint64_t) override {
    const auto answer = answers.find(message);
    return answer == answers.end() ? 0 : answer->second;
  }
  std::optional<Text> WindowText(WindowHandle, std::int32_t capacity) override {
    capacities.push_back(capacity);
    return text;
  }
  std::optional<Text> EditLine(WindowHandle, std::int32_t, std::int32_t capacity) override {
    capacities.push_back(capacity);
    return text;
  }
  std::optional<Text> ListBoxText(WindowHandle, std::int32_t item, std::int32_t length) override {
    items.push_back(item);
    capacities.push_back(length);
    return text;
  }

  std::map<std::uint32_t, std::optional<std::int32_t>> answers;
  std::optional<Text> text;
  std::vector<std::int32_t> capacities;  // that texts were asked for with
  std::vector<std::int32_t> items;
};

// A menu and a process whose answers are the test's.
class StrangeMenus final : public Menus {
 public:
  MenuHandle MenuOf(WindowHandle) override { return 5; }
  MenuHandle SubMenuOf(MenuHandle, int) override { return 6; }
  bool IsMenu(MenuHandle) override { return true; }
  std::int32_t ItemAt(WindowHandle, MenuHandle, Point) override { return item; }
  std::int32_t ItemText(MenuHandle, std::int32_t, Text& buffer, int) override {
    buffer = text;
    return count;
  }

  std::int32_t item = 0;
  std::int32_t count = 0;
  Text text;
};

class HostileControls : public ::testing::Test {
 protected:
  HostileControls() {
    EXPECT_TRUE(simulated.platform.sapi5.Create());
    engine.SetVoice(Engine::Object::kSapi5);
    settings.mSapiVersion = 5;
    description.mOfficialClassName = u"Strange";
  }

  std::string Heard() {
    const std::string& all = simulated.transcript();
    std::string fresh = all.substr(heard);
    heard = all.size();
    return fresh;
  }
  std::string HeardWords() {
    const std::string fresh = Heard();
    const auto last = fresh.rfind("speak 3 \"");
    return last == std::string::npos ? "" : fresh.substr(last + 9, fresh.size() - last - 11);
  }

  sim::Simulated simulated{R"({"windows": [{"id": 2, "class": "Strange", "rect": [0, 0, 400, 400]}]})"};
  sim::SimPlatform& seam = simulated.platform;
  StrangeMessages messages;
  StrangeMenus menus;
  InputState input;
  ObjectDescription description;
  SpotHistory history;
  DesktopWindows desktop;
  VoiceSettings settings;
  Engine engine{seam.sapi5, seam.sapi4};
  Pronouncer pronouncer{seam.input, input, description};
  Speaker speaker{seam.input, seam.panel, input, settings, engine, pronouncer};
  SpokenDialogs dialogs{seam.dialogs, seam.panel, input, speaker};
  MidiPort port{seam.midi, seam.panel, seam.system, dialogs};
  DelayLoop delay{seam.clock};
  EventSounds sounds{port, delay};
  ObjectSpeech speech{description, history, pronouncer, speaker};
  WindowTitle titles{messages, seam.windows};
  ControlReaders controls{input, description, speech, titles, sounds};
  ListBoxReader listBoxes{messages, seam.windows, speech, sounds};
  ListViewReader listViews{
      {messages, seam.windows, seam.memory, seam.ansi}, desktop, history, speaker, speech, titles, sounds};
  EditWords words{description, speech};
  EditReaders edits{{messages, seam.windows, seam.memory}, description, speech, controls, words};
  MenuReader menuReader{menus, seam.windows, seam.memory, description, speech};
  Spot spot{{10, 20}, 2};
  std::size_t heard = 0;
};

TEST_F(HostileControls, TitleOfAnyLengthIsFetchedWithinBounds) {
  messages.text = u"Title";
  for (const std::int32_t length : kStrange) {
    SCOPED_TRACE(length);
    messages.answers[kWmGetTextLength] = length;
    messages.capacities.clear();
    EXPECT_EQ(titles.GetWindowTitle(2), length < 1 ? u"" : u"Title");
    for (const std::int32_t capacity : messages.capacities) EXPECT_EQ(capacity, std::min(length, 65536) + 1);
    EXPECT_EQ(messages.capacities.size(), length < 1 ? 0u : 1u);
  }
}

TEST_F(HostileControls, TitleThatIsNotAnsweredIsTheSystemsOwn) {
  messages.answers[kWmGetTextLength] = 5;
  EXPECT_EQ(titles.GetWindowTitle(2), u"");
  sim::WindowFields fields;
  fields.id = 2;
  fields.title = u"Own";
  simulated.machine.desktop.Change(fields);
  EXPECT_EQ(titles.GetWindowTitle(2), u"Own");
  messages.text = u"   ";
  EXPECT_EQ(titles.GetWindowTitle(2), u"Own");
}

TEST_F(HostileControls, ListBoxItemsOfAnyLengthAreFetchedWithinBounds) {
  std::int32_t item = 0;
  for (const std::int32_t length : kStrange) {
    SCOPED_TRACE(length);
    messages.answers[kLbItemFromPoint] = ++item;
    messages.answers[kLbGetTextLen] = length;
    messages.text = u"Item " + Text(1, static_cast<char16_t>(u'a' + item));
    messages.capacities.clear();
    EXPECT_TRUE(listBoxes.ReadListBox(spot));
    const bool fetched = length >= 1 && length <= 65536;
    EXPECT_EQ(messages.capacities, fetched ? std::vector{length} : std::vector<std::int32_t>{});
    Heard();
  }
}

TEST_F(HostileControls, ListBoxHitsOfAnyNumberAskForItemsOf16Bits) {
  messages.answers[kLbGetTextLen] = 3;
  messages.text = u"abc";
  for (const std::int32_t hit : kStrange) {
    SCOPED_TRACE(hit);
    messages.answers[kLbItemFromPoint] = hit;
    messages.items.clear();
    listBoxes.ReadListBox(spot);
    for (const std::int32_t item : messages.items) {
      EXPECT_GE(item, 0);
      EXPECT_LE(item, 0xFFFF);
    }
    if (hit > 0xFFFF) {
      EXPECT_TRUE(messages.items.empty());
    }
  }
}

TEST_F(HostileControls, ListBoxThatDoesNotAnswerSaysItsKindOnce) {
  messages.answers[kLbItemFromPoint] = 4;
  messages.answers[kLbGetTextLen] = std::nullopt;
  EXPECT_TRUE(listBoxes.ReadListBox(spot));
  EXPECT_EQ(HeardWords(), "It is eigh strange");
  EXPECT_FALSE(listBoxes.ReadListBox(spot));
}

TEST_F(HostileControls, TextFieldsOfAnyNumbersAreRead) {
  for (const std::int32_t place : kStrange) {
    for (const std::int32_t length : kStrange) {
      SCOPED_TRACE(::testing::Message() << place << " " << length);
      messages.answers = {{kEmCharFromPos, place}, {kEmLineLength, length}, {kEmLineFromChar, place}};
      description.maccText = u"accessible\r\ntext";
      for (const Text& line : {Text(), Text(u"short"), Text(3000, u'x')}) {
        messages.text = line;
        messages.capacities.clear();
        EXPECT_TRUE(edits.ReadEditControl(spot));
        for (const std::int32_t capacity : messages.capacities) {
          EXPECT_TRUE(capacity == 4 || capacity == 1028) << capacity;
          EXPECT_EQ(capacity == 4, length == 1);
        }
        EXPECT_TRUE(edits.ReadRichEdit(spot));
      }
      description.maccText = Text();
      messages.text = std::nullopt;
      EXPECT_TRUE(edits.ReadEditControl(spot));
      EXPECT_TRUE(edits.ReadRichEdit(spot));
    }
  }
  EXPECT_EQ(seam.memory.memory().BlockCount(), 0u);
}

TEST_F(HostileControls, LineThatIsShorterThanAnnouncedIsNotUsed) {
  messages.answers = {{kEmLineLength, 9}};
  messages.text = u"short";
  description.maccText = u"accessible";
  EXPECT_TRUE(edits.ReadEditControl(spot));
  EXPECT_EQ(HeardWords(), "accessible");
  messages.text = u"longer than announced";
  words.MarkNewWindow();
  EXPECT_TRUE(edits.ReadEditControl(spot));
  EXPECT_EQ(HeardWords(), "longer th");
}

TEST_F(HostileControls, MenuTextsOfAnyCountAreCutToWhatIsThere) {
  description.maccText = Text();
  menus.text = u"Menu";
  for (const std::int32_t count : kStrange) {
    SCOPED_TRACE(count);
    menus.count = count;
    EXPECT_TRUE(menuReader.ReadMenu(spot, false));
    speaker.SpeakRaw(u" ");
  }
  menus.count = 3;
  EXPECT_TRUE(menuReader.ReadMenu(spot, false));
  EXPECT_EQ(HeardWords(), "Men menu");
  for (const std::int32_t item : {-1, -2, kLeast}) {
    menus.item = item;
    EXPECT_FALSE(menuReader.ReadMenu(spot, false));
  }
}

TEST_F(HostileControls, ListViewOfAVanishedWindowIsReadAsEmpty) {
  spot.window = 99;
  EXPECT_FALSE(listViews.ReadListView(spot));
  EXPECT_EQ(listViews.ListViewItemText(99, 0, 0), Text(255, u' '));
  EXPECT_EQ(listViews.ListViewItemText(2, -1, 0), u"");
  EXPECT_EQ(Heard(), "");
}

}  // namespace
}  // namespace pointalk
