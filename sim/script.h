// A rehearsal's script: the machine at its beginning and the steps that are carried out on it.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "platform/types.h"
#include "sim/json.h"
#include "sim/registry_tree.h"
#include "sim/window.h"
#include "text/text.h"

namespace pointalk::sim {

struct Sapi5Setup {
  std::vector<Text> voices = {u"Microsoft Mary", u"Microsoft Mike", u"Microsoft Sam"};
  double rate = 0;
};

struct Sapi4Setup {
  double speed = 150;
  std::map<Text, double> voices;  // what Find gives for which criteria
  std::vector<double> positions;  // of the word spoken last, one after the other
};

struct MachineSetup {
  std::int32_t screenWidth = 1024;
  std::int32_t screenHeight = 768;
  std::int64_t clock = 36'000'000'000;   // microseconds since midnight
  std::int64_t spinMicroseconds = 1000;  // of one pass of the delay loop
  bool windows95 = false;
  std::uint32_t midiDevices = 1;
  std::vector<std::uint32_t> midiOpenResults;  // past the end 0
  std::optional<Sapi5Setup> sapi5 = Sapi5Setup{};
  std::optional<Sapi4Setup> sapi4;
  std::map<Text, Text> files;
  std::vector<Text> readOnly;  // paths; one that ends in a backslash stands for all that begin with it
  bool shortPathFails = false;
  RegistryTree registry;
  bool registryDenied = false;
  bool clipboardFails = false;
  bool shellFails = false;
  Text roleZero = u"unknown object";
};

// One answer to a dialog: the text typed into an input box, or the platform's number of a message box's
// button.
using Answer = std::variant<Text, int>;

// What the steps do. One that needs the program has no effect while the program does not run.
struct StartStep {
  static constexpr bool kNeedsProgram = false;
};
struct TickStep {
  static constexpr bool kNeedsProgram = true;
  std::int64_t times = 0;
};
struct WaitStep {
  static constexpr bool kNeedsProgram = false;
  std::int64_t microseconds = 0;
};
struct PointerStep {
  static constexpr bool kNeedsProgram = false;
  Point place;
};
struct KeyStep {
  static constexpr bool kNeedsProgram = false;
  int key = 0;
  bool down = false;
};
struct TapKeyStep {
  static constexpr bool kNeedsProgram = true;
  int key = 0;
};
struct ButtonStep {
  static constexpr bool kNeedsProgram = true;
  int key = 0;
  bool down = false;
  std::int32_t message = 0;
};
struct HookStep {
  static constexpr bool kNeedsProgram = true;
  std::int32_t message = 0;
};
struct ChooseStep {
  static constexpr bool kNeedsProgram = true;
  Text control;
};
struct ClickStep {
  static constexpr bool kNeedsProgram = true;
};
struct AnswersStep {
  static constexpr bool kNeedsProgram = false;
  std::vector<Answer> answers;
};
struct ChangeStep {
  static constexpr bool kNeedsProgram = false;
  WindowFields fields;
};
struct ObjectsStep {
  static constexpr bool kNeedsProgram = false;
  std::vector<AccessibleObject> objects;
};
struct FilesStep {
  static constexpr bool kNeedsProgram = false;
  std::vector<std::pair<Text, std::optional<Text>>> files;
};
struct CloseStep {
  static constexpr bool kNeedsProgram = true;
};
struct KillStep {
  static constexpr bool kNeedsProgram = true;
};

enum class Shown { kFiles, kRegistry, kClipboard, kMemory };
struct ShowStep {
  static constexpr bool kNeedsProgram = false;
  std::vector<Shown> parts;
};

struct Step {
  std::string_view name;  // its key
  std::string echo;       // the step as compact JSON
  std::variant<StartStep, TickStep, WaitStep, PointerStep, KeyStep, TapKeyStep, ButtonStep, HookStep,
               ChooseStep, ClickStep, AnswersStep, ChangeStep, ObjectsStep, FilesStep, CloseStep, KillStep,
               ShowStep>
      action;
};

struct Script {
  MachineSetup machine;
  std::vector<WindowFields> windows;  // from the lowest to the topmost
  std::vector<AccessibleObject> objects;
  std::vector<Step> steps;
};

// Throws ScriptError.
Script ReadScript(std::string_view source);

// Whole microseconds, ties rounded to even, within one day.
std::int64_t DayMicroseconds(double microseconds);

}  // namespace pointalk::sim
