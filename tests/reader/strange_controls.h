// The readers over controls whose answers are a test's.
#pragma once

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "reader/control_readers.h"
#include "reader/edit_readers.h"
#include "reader/list_box_reader.h"
#include "reader/list_view_reader.h"
#include "reader/menu_reader.h"
#include "reader/messages.h"
#include "tests/speech/speaking.h"

namespace pointalk {

// Answers each message with a number of the test's, and texts with what the test has.
class StrangeMessages final : public ControlMessages {
 public:
  std::optional<std::int32_t> Send(WindowHandle, std::uint32_t message, std::uint64_t wParam,
                                   std::uint64_t lParam) override {
    sent.push_back({message, wParam, lParam});
    if (const auto place = places.find(lParam); place != places.end()) return place->second;
    const auto answer = answers.find(message);
    return answer == answers.end() ? 0 : answer->second;
  }
  std::optional<Text> WindowText(WindowHandle, std::int32_t capacity) override {
    capacities.push_back(capacity);
    return text;
  }
  std::optional<Text> EditLine(WindowHandle, std::int32_t line, std::int32_t capacity) override {
    capacities.push_back(capacity);
    lines.push_back(line);
    return text;
  }
  std::optional<Text> ListBoxText(WindowHandle, std::int32_t item, std::int32_t length) override {
    items.push_back(item);
    capacities.push_back(length);
    return text;
  }

  struct Sent {
    std::uint32_t message;
    std::uint64_t wParam;
    std::uint64_t lParam;
  };
  std::vector<Sent> sent;
  std::map<std::uint64_t, std::int32_t> places;  // answers by lParam; the others by message
  std::map<std::uint32_t, std::optional<std::int32_t>> answers;
  std::optional<Text> text;
  std::vector<std::int32_t> capacities;  // that texts were asked for with
  std::vector<std::int32_t> items;
  std::vector<std::int32_t> lines;
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

class StrangeControls : public ::testing::Test, protected Speaking {
 protected:
  StrangeControls();
  ~StrangeControls() override;

  // What was heard since this was last asked for: all of it, or the last words alone.
  std::string Heard();
  std::string HeardWords();

  StrangeMessages messages;
  StrangeMenus menus;
  DesktopWindows desktop;
  MidiPort port{platform.midi};
  DelayLoop delay{platform.clock};
  EventSounds sounds{port, delay};
  ObjectSpeech objectSpeech{pronouncer, speaker};
  WindowTitle titles{messages, platform.windows};
  ControlReaders controls{clicks, sounds, objectSpeech, titles};
  ListBoxReader listBoxes{messages, platform.windows, sounds, objectSpeech};
  ListViewReader listViews{{messages, platform.windows, platform.memory, platform.ansi},
                           speaker,
                           sounds,
                           desktop,
                           objectSpeech,
                           titles};
  EditWords words{objectSpeech};
  EditReaders edits{{messages, platform.windows, platform.memory}, objectSpeech, controls, words};
  MenuReader menuReader{{menus, platform.windows, platform.memory}, objectSpeech};
  Spot spot{.point = {10, 20}, .window = 2, .className = u"Strange", .lowerClassName = u"strange"};

 private:
  std::size_t heard_ = 0;
};

}  // namespace pointalk
