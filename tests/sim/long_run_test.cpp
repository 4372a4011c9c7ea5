// A long day at the machine: ticks over a desktop that changes all the time. Memory stays flat, no note is
// left hanging, and at the end everything sounds as it did at the beginning.
//
// POINTALK_LONG_TICKS gives the number of ticks; 40,000 without it.
#include <gtest/gtest.h>
#include <malloc.h>
#if defined(__has_feature) && !defined(__SANITIZE_ADDRESS__)  // gcc 14 has both
#if __has_feature(address_sanitizer)
#define __SANITIZE_ADDRESS__  // as gcc calls it
#endif
#endif

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <iostream>
#include <iterator>
#include <random>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "app/mouse.h"
#include "tests/sim/simulated.h"
#include "tests/support/forwarding.h"
#include "tests/support/replaced.h"

#ifdef __SANITIZE_ADDRESS__
// From the sanitizers' allocator_interface.h, which gcc leaves out.
extern "C" std::size_t __sanitizer_get_current_allocated_bytes();
#endif

namespace pointalk::sim {
namespace {

// Bytes that are allocated and not freed.
std::int64_t LiveBytes() {
#ifdef __SANITIZE_ADDRESS__
  return static_cast<std::int64_t>(__sanitizer_get_current_allocated_bytes());
#else
  const auto memory = mallinfo2();
  return static_cast<std::int64_t>(memory.uordblks + memory.hblkhd);
#endif
}

// A synthesizer's ear in front of the simulated port: which notes sound.
class ListeningPort final : public testing::ForwardingMidiOut {
 public:
  using ForwardingMidiOut::ForwardingMidiOut;

  bool Send(MidiHandle handle, std::uint32_t message) override {
    const std::pair note(message & 0xF, message >> 8 & 0xFF);  // with its channel
    if ((message & 0xF0) == 0x90) {
      sounding.insert(note);
      ++struck;
    } else if ((message & 0xF0) == 0x80) {
      sounding.erase(note);
    }
    return ForwardingMidiOut::Send(handle, message);
  }

  std::set<std::pair<std::uint32_t, std::uint32_t>> sounding;
  std::int64_t struck = 0;
};

constexpr WindowHandle kWindowCount = 24;  // with the ids from 1 on
constexpr std::int32_t kSlotWidth = 170;
constexpr std::int32_t kSlotHeight = 190;

std::string ManyWindows() {
  std::string windows;
  for (WindowHandle id = 1; id <= kWindowCount; ++id) windows += ",{\"id\":" + std::to_string(id) + "}";
  return R"({"machine":{"files":{"current\\DidWarn.flg":"x"}},"windows":[)"
         R"({"id":101,"class":"Progman","title":"Program Manager","rect":[0,0,1024,768]},)"
         R"({"id":102,"class":"SHELLDLL_DefView","parent":101,"rect":[0,0,1024,768]},)"
         R"({"id":103,"class":"SysListView32","parent":102,"rect":[0,0,1024,768],"listView":{"items":)"
         R"([{"text":"Mail","icon":[20,20,90,90],"label":[20,90,90,120]}]}})" +
         windows + "]}";
}

constexpr TextView kClasses[] = {
    u"Button",        u"Static",          u"Edit",          u"ThunderTextBox",
    u"RichEdit20W",   u"ListBox",         u"ComboBox",      u"ScrollBar",
    u"#32768",        u"MsoCommandBar",   u"SysListView32", u"SysTreeView32",
    u"Shell_TrayWnd", u"TrayClockWClass", u"Afx:400000",    u"",
};
constexpr TextView kTexts[] = {
    u"",     u"&OK",           u"C:\\Temp2.txt",    u"10:07 AM",
    u"    ", u"AAAAAAAA BBBB", u"Caf\u00E9 \u0141", u"one two\r\nthree four\r\nfive",
};
constexpr TextView kRoles[] = {u"push button", u"editable text", u"menu item", u"scroll bar", u""};

constexpr int kKeys[] = {kKeyShift, kKeyControl, kKeyAlt, kKeyLeftButton};

// What the user chooses, and what he answers; without an answer he cancels.
struct Command {
  void (Mouse::*handler)();
  TextView answer = u"";
};
constexpr Command kCommands[] = {
    {&Mouse::mnuFileMinimize_Click},
    {&Mouse::mnuFileExit_Click},
    {&Mouse::RequestQuit},
    {&Mouse::mnuMidiOnOff_Click},
    {&Mouse::mnuVoiceMute_Click},
    {&Mouse::cmdMouseInstrumentPreset_Click, u"3"},
    {&Mouse::cmdChangeMouseMelodyFormat_Click, u"4"},
    {&Mouse::cmdChangeMouseMelodyFormat_Click, u"2"},
    {&Mouse::mnuMidiHorizInstrument_Click, u"9"},
    {&Mouse::mnuMidiVertInstrument_Click},
    {&Mouse::mnuMidiHorizVolume_Click, u"0"},
    {&Mouse::mnuMidiVertVolume_Click, u"300"},
    {&Mouse::mnuMidiDingVolume_Click, u"50"},
    {&Mouse::mnuMidiKeyboardScaling_Click, u"33"},
    {&Mouse::mnuVoiceVolume_Click, u"20"},
    {&Mouse::cmdSpeedUpVoice_Click},
    {&Mouse::cmdSlowDownVoice_Click},
    {&Mouse::cmdVoiceMike_Click},
    {&Mouse::mnuVoiceClearSapiVersion_Click},
    {&Mouse::mnuHelpInstructions_Click},
    {&Mouse::mnuHelpAbout_Click},
    {&Mouse::mnuProgramMakeAutoStart_Click},
    {&Mouse::mnuProgramMakeNotAutoStart_Click},
    {&Mouse::mnuTroubleCrashReport_Click},
};
constexpr Command kUsualSettings[] = {
    {&Mouse::cmdMouseInstrumentPreset_Click, u"1"},
    {&Mouse::cmdChangeMouseMelodyFormat_Click, u"1"},
    {&Mouse::mnuMidiHorizVolume_Click, u"70"},
    {&Mouse::mnuMidiVertVolume_Click, u"80"},
    {&Mouse::mnuMidiKeyboardScaling_Click, u"10"},
    {&Mouse::mnuVoiceVolume_Click, u"80"},
    {&Mouse::cmdVoiceMary_Click},
};

// One machine with the program on it, from its start on.
class LongDay {
 public:
  LongDay() { mouse.Form_Load(); }

  void Ticks(int times);
  void Choose(const Command& command);

  // Somebody works, for one tick.
  void Work();

  // Keys and buttons are let go and the pointer lies still for half a second.
  void Rest();

  // The usual settings, and every window in its own place.
  void PutInOrder();

  // A round over the windows in order; what was heard of it.
  std::string Tour();

  std::int64_t ticks = 0;
  int rests = 0;
  Simulated simulated{ManyWindows()};
  ListeningPort ear{simulated.platform.midi};

 private:
  std::int32_t Below(std::int32_t end) {
    return static_cast<std::int32_t>(random() % static_cast<std::uint32_t>(end));
  }
  template <class Choices> const auto& OneOf(const Choices& choices) {
    return choices[static_cast<std::size_t>(Below(static_cast<std::int32_t>(std::size(choices))))];
  }
  WindowFields Furnished(WindowHandle id, TextView className, TextView text);
  void ChangeAWindow();
  void ChangeObjects();
  void PressSomething();
  void Turn(TextView menuName, void (Mouse::*command)(), bool checked);

  Machine& machine = simulated.machine;
  std::mt19937 random{1};
  Mouse mouse{testing::Replaced(simulated.platform.Seam(), ear)};
};

void LongDay::Ticks(int times) {
  for (int i = 0; i < times; ++i, ++ticks) {
    machine.Pass(30'000);
    machine.unansweredQuestions = 0;
    mouse.Timer1_Timer();
    ASSERT_TRUE(simulated.platform.panel.TimerEnabled());
  }
}

void LongDay::Choose(const Command& command) {
  machine.unansweredQuestions = 0;
  machine.answers.clear();
  if (!command.answer.empty()) machine.answers.emplace_back(Text(command.answer));
  (mouse.*command.handler)();
  machine.answers.clear();
}

WindowFields LongDay::Furnished(WindowHandle id, TextView className, TextView text) {
  WindowFields fields;
  fields.id = id;
  fields.className = className;
  fields.title = text;
  fields.listBox = ListBox{{u"zero", Text(text), u"two"}, 16, 0};
  fields.listView = ListView{{{Text(text), {10, 10, 60, 60}, {10, 60, 60, 80}}}};
  fields.edit = Edit(Text(text), {}, u"\r\n");
  fields.richEdit = Edit(Text(text), {}, u"\r");
  fields.menu = MenuSetup{{{Text(text), {0, 0, 400, 300}, std::nullopt}}};
  return fields;
}

void LongDay::ChangeAWindow() {
  const auto id = static_cast<WindowHandle>(1 + Below(kWindowCount));
  WindowFields fields = Furnished(id, OneOf(kClasses), OneOf(kTexts));
  if (Below(3) != 0) fields.menu = MenuSetup{};
  const std::int32_t left = Below(1000);
  const std::int32_t top = Below(700);
  fields.place = Rectangle{left, top, left + 1 + Below(400), top + 1 + Below(400)};
  fields.parent = static_cast<WindowHandle>(Below(4) == 0 ? Below(kWindowCount) : Below(2) * 101);
  fields.process = static_cast<ProcessId>(Below(5));
  fields.visible = Below(8) != 0;
  fields.hung = Below(16) == 0;
  machine.desktop.Change(fields);
}

void LongDay::ChangeObjects() {
  machine.desktop.objects.clear();
  for (std::int32_t count = Below(4); count > 0; --count) {
    AccessibleObject object;
    object.place = {0, 0, 1 + Below(1024), 1 + Below(768)};
    object.name = OneOf(kTexts);
    object.value = OneOf(kTexts);
    object.role = OneOf(kRoles);
    object.fails = Below(5) == 0;
    machine.desktop.objects.push_back(std::move(object));
  }
}

void LongDay::PressSomething() {
  machine.keys[static_cast<std::size_t>(OneOf(kKeys))].down = Below(2) == 0;
  mouse.WinHook1_Message(513 + Below(10));
}

void LongDay::Work() {
  if (Below(5) == 0) ChangeAWindow();
  if (Below(20) == 0) ChangeObjects();
  if (Below(10) == 0) PressSomething();
  if (Below(500) == 0) Choose(OneOf(kCommands));
  if (Below(3) != 0)
    machine.pointer = {machine.pointer.x + Below(41) - 20, machine.pointer.y + Below(41) - 20};
  if (Below(40) == 0) machine.pointer = {Below(1200) - 100, Below(900) - 100};
  Ticks(1);
}

void LongDay::Rest() {
  for (Key& key : machine.keys) key = {};
  mouse.WinHook1_Message(514);
  Ticks(16);
  ++rests;
  ASSERT_TRUE(ear.sounding.empty()) << "channel " << ear.sounding.begin()->first << ", note "
                                    << ear.sounding.begin()->second << " after tick " << ticks;
}

void LongDay::Turn(TextView menuName, void (Mouse::*command)(), bool checked) {
  if (simulated.platform.panel.MenuChecked(menuName) != checked) Choose({command});
}

void LongDay::PutInOrder() {
  Turn(u"mnuMidiOnOff", &Mouse::mnuMidiOnOff_Click, true);
  Turn(u"mnuVoiceMute", &Mouse::mnuVoiceMute_Click, false);
  for (const Command& command : kUsualSettings) Choose(command);
  for (int step = 0; step < 25; ++step) Choose({&Mouse::cmdSlowDownVoice_Click});  // as slow as can be
  machine.clock = 36'000'000'000;
  machine.desktop.objects.clear();
  for (WindowHandle id = 1; id <= kWindowCount; ++id) {
    WindowFields fields = Furnished(id, kClasses[id % std::size(kClasses)], kTexts[id % std::size(kTexts)]);
    const auto left = static_cast<std::int32_t>((id - 1) % 6) * kSlotWidth;
    const auto top = static_cast<std::int32_t>((id - 1) / 6) * kSlotHeight;
    fields.place = Rectangle{left, top, left + 100, top + 100};
    fields.parent = id % 2 == 0 ? 101 : 0;
    fields.process = 1;
    fields.visible = true;
    fields.hung = false;
    machine.desktop.Change(fields);
  }
}

std::string LongDay::Tour() {
  machine.transcript.Clear();
  for (std::int32_t x = 15; x < 1024; x += kSlotWidth) {
    for (std::int32_t y = 15; y < 768; y += kSlotHeight / 2) {
      machine.pointer = {x, y};
      Ticks(2);
      mouse.WinHook1_Message(516);
      Ticks(10);
    }
    Rest();
  }
  return std::exchange(machine.transcript, {}).Lines();
}

std::int64_t TicksWanted() {
  const char* const wanted = std::getenv("POINTALK_LONG_TICKS");
  return wanted == nullptr ? 40'000 : std::atoll(wanted);
}

// Two rounds, so that what was before the first is not heard in the second.
std::string SecondTour(LongDay& day) {
  day.PutInOrder();
  day.Tour();
  return day.Tour();
}

TEST(LongRun, StaysAsItBegan) {
  LongDay day;
  const std::string atFirst = SecondTour(day);
  ASSERT_NE(atFirst.find("sapi5 speak"), std::string::npos);
  const std::int64_t wanted = TicksWanted();
  std::int64_t bytesAtATenth = 0;
  while (day.ticks < wanted && !HasFatalFailure()) {
    for (int tick = 0; tick < 300; ++tick) day.Work();
    day.Rest();
    day.simulated.machine.transcript.Clear();
    if (bytesAtATenth == 0 && day.ticks >= wanted / 10) {
      SecondTour(day);
      bytesAtATenth = LiveBytes();
    }
  }
  EXPECT_EQ(SecondTour(day), atFirst);
  const std::int64_t grown = LiveBytes() - bytesAtATenth;
  EXPECT_LT(std::abs(grown), 64 * 1024) << "bytes from a tenth of the ticks to all of them";
  EXPECT_GT(day.ear.struck, wanted / 100);
  std::cout << day.ticks << " ticks, " << day.rests << " rests, " << day.ear.struck << " notes; " << grown
            << " bytes more than after a tenth\n";
}

}  // namespace
}  // namespace pointalk::sim
