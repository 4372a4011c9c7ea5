#include "linux/programs.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <iterator>
#include <limits>
#include <sstream>

#include "linux/atspi_names.h"
#include "linux/utf8.h"

namespace pointalk::linux {
namespace {

constexpr std::chrono::milliseconds kRefreshPause{500};
constexpr std::chrono::seconds kTrial{1};                 // of a frame that does not fit its window
constexpr std::chrono::milliseconds kShortestMeeting{5};  // that an answer may be expected in
constexpr std::chrono::milliseconds kLongestMeeting{50};
constexpr std::int64_t kParts = 4;     // one of so many parts of a window's size may be missing in its frame,
constexpr std::int32_t kShadows = 32;  // or so much
const BusObject kDesktop{kRegistry, kRootPath};
const BusObject kBusItself{"org.freedesktop.DBus", "/org/freedesktop/DBus"};

BusMessage PropertyCall(Bus& bus, const BusObject& object, const char* interface, const char* property) {
  BusMessage call = bus.Call(object, kProperties, "Get");
  if (call) sd_bus_message_append(call.get(), "ss", interface, property);
  return call;
}

std::string TextProperty(const BusMessage& answer) {
  BusReader reader(answer);
  return reader.EnterVariant("s") ? reader.ReadBytes() : std::string();
}

Toolkit ToolkitOf(const std::string& name, const std::string& version) {
  if (name == "Qt") return Toolkit::kQt;
  if (name != "GTK") return Toolkit::kUsual;
  int major = 0;
  int minor = 0;
  char point = '.';
  std::istringstream(version) >> major >> point >> minor;
  if (major < 4) return Toolkit::kUsual;
  return major == 4 && minor < 18 ? Toolkit::kOldGtk4 : Toolkit::kGtk4;
}

std::int32_t Scale(std::int32_t real, std::int32_t counted) {
  if (counted <= 0) return 1;
  return std::clamp(static_cast<std::int32_t>(std::lround(double{1} * real / counted)), 1, 8);
}

std::int64_t Apart(std::int32_t counted, std::int32_t real, std::int32_t scale) {
  return std::llabs(std::int64_t{counted} * scale - real);
}

std::int64_t SizesApart(const BusReader::Four& extents, const XDisplay::Place& window, std::int32_t scale) {
  return Apart(extents.third, window.width, scale) + Apart(extents.fourth, window.height, scale);
}

// Shadows and borders may be counted or not, and a growing window's program may not have followed yet. A
// scale is guessed so that it fits, and has to fit well.
bool IsAbout(std::int32_t counted, std::int32_t real, std::int32_t scale) {
  const std::int64_t apart = Apart(counted, real, scale);
  return apart <= std::int64_t{kShadows} * scale || (scale == 1 && apart * kParts <= real);
}

// How far a frame is from where the window is, in pixels; without places, by the size alone.
std::int64_t Distance(const BusReader::Four& extents, const XDisplay::Place& window, std::int32_t scale,
                      bool placed) {
  const std::int64_t sizes = SizesApart(extents, window, scale);
  return placed ? sizes + Apart(extents.first, window.origin.x, scale) +
                      Apart(extents.second, window.origin.y, scale)
                : sizes;
}

}  // namespace

std::vector<std::shared_ptr<Program>> Programs::Of(ProcessId process, Moment limit) {
  if (process == 0) return {};
  auto known = Known(process);
  if (!known.empty()) return known;
  Refresh(limit);
  return Known(process);
}

std::vector<std::shared_ptr<Program>> Programs::Known(ProcessId process) const {
  std::vector<std::shared_ptr<Program>> known;
  std::copy_if(programs_.begin(), programs_.end(), std::back_inserter(known),
               [process](const auto& program) { return program->process == process; });
  return known;
}

bool Programs::IsSilent(ProcessId process) const {
  const auto known = Known(process);
  return std::any_of(known.begin(), known.end(),
                     [this](const auto& program) { return bus_.IsSilent(program->root.program); });
}

void Programs::Forget(const std::string& name) {
  std::erase_if(programs_, [&name](const auto& program) { return program->root.program == name; });
  met_.erase(name);
}

// A program is on the bus a moment before it is in the list, so that the list is asked for again after a
// while.
void Programs::Refresh(Moment limit) {
  const Moment now = std::chrono::steady_clock::now();
  if (!mayHaveMore_ && now - lastRefresh_ < kRefreshPause) return;
  lastRefresh_ = now;
  mayHaveMore_ = false;
  BusReader list(bus_.Ask(bus_.Call(kDesktop, kAccessible, "GetChildren"), limit));
  std::vector<BusObject> fresh;
  for (BusObject& root : list.ReadObjects()) {
    if (!root.IsNull() && !met_.contains(root.program)) fresh.push_back(std::move(root));
  }
  std::vector<BusMessage> calls;
  for (const BusObject& root : fresh) {
    calls.push_back(bus_.Call(kBusItself, "org.freedesktop.DBus", "GetConnectionUnixProcessID"));
    if (calls.back()) sd_bus_message_append(calls.back().get(), "s", root.program.c_str());
  }
  const std::vector<BusMessage> answers = bus_.Ask(std::move(calls), limit);
  std::vector<Newcomer> newcomers;
  for (std::size_t i = 0; i < fresh.size(); ++i) {
    BusReader answer(answers[i]);
    if (const ProcessId process = answer.ReadUnsigned(); answer.IsGood())
      newcomers.push_back({std::move(fresh[i]), process});
  }
  if (!newcomers.empty()) Meet(newcomers, limit);
}

// A hung program is not waited for, and how it has to be asked is found out once it answers. Where there is
// no time left nobody is asked, and nothing is taken for known. One that ends while it is asked is forgotten
// at once, as any other.
void Programs::Meet(const std::vector<Newcomer>& newcomers, Moment limit) {
  const Moment now = std::chrono::steady_clock::now();
  if (limit - now < kShortestMeeting) return Expect();
  std::vector<BusMessage> calls;
  for (const auto& [root, process] : newcomers) {
    met_.insert(root.program);
    programs_.push_back(std::make_shared<Program>(Program{root, process, Toolkit::kUsual, {}}));
    calls.push_back(PropertyCall(bus_, root, kApplication, "ToolkitName"));
    calls.push_back(PropertyCall(bus_, root, kApplication, "Version"));
  }
  const auto answers = bus_.Ask(std::move(calls), std::min(limit, now + kLongestMeeting));
  for (std::size_t i = 0; i < newcomers.size(); ++i) {
    const std::string& name = newcomers[i].root.program;
    if (bus_.IsSilent(name)) {
      Forget(name);
      continue;
    }
    const auto program = std::find_if(programs_.begin(), programs_.end(),
                                      [&name](const auto& known) { return known->root.program == name; });
    if (program == programs_.end()) continue;
    (*program)->toolkit = ToolkitOf(TextProperty(answers[2 * i]), TextProperty(answers[2 * i + 1]));
  }
}

// While a window grows its program may not have followed yet, and frame and scale are guessed wrongly. So one
// that does not fit is looked for again after a while.
std::optional<Frame> Programs::FrameOf(Program& program, const ObjectQuestion& question, Moment limit) {
  const Moment now = std::chrono::steady_clock::now();
  if (const auto known = program.frames.find(question.spot.window);
      known != program.frames.end() && (known->second.fits || now - known->second.found < kTrial))
    return known->second;
  const std::vector<BusObject> frames = WindowsOf(program, limit);
  if (frames.empty()) return std::nullopt;
  auto nearest = Nearest(frames, program, question, limit);
  if (nearest) program.frames[question.spot.window] = *nearest;
  return nearest;
}

std::vector<BusObject> Programs::WindowsOf(const Program& program, Moment limit) {
  BusReader children(bus_.Ask(bus_.Call(program.root, kAccessible, "GetChildren"), limit));
  std::vector<BusObject> windows = children.ReadObjects();
  std::erase_if(windows, [](const BusObject& window) { return window.IsNull(); });
  return windows;
}

BusObject Programs::WindowAt(const Program& program, const XDisplay::Place& place, std::int32_t scale,
                             Moment limit) {
  std::vector<BusObject> windows = WindowsOf(program, limit);
  std::vector<BusMessage> calls;
  for (const BusObject& window : windows) {
    calls.push_back(bus_.Call(window, kComponent, "GetExtents"));
    if (calls.back()) sd_bus_message_append(calls.back().get(), "u", kOnScreen);
  }
  const auto answers = bus_.Ask(std::move(calls), limit);
  for (std::size_t i = 0; i < windows.size(); ++i) {
    BusReader reader(answers[i]);
    const BusReader::Four extents = reader.ReadFour();
    if (reader.IsGood() && Distance(extents, place, scale, true) <= 4 * scale) return std::move(windows[i]);
  }
  return {};
}

std::optional<Frame> Programs::Nearest(const std::vector<BusObject>& frames, const Program& program,
                                       const ObjectQuestion& question, Moment limit) {
  const bool placed = program.toolkit != Toolkit::kGtk4 && program.toolkit != Toolkit::kOldGtk4;
  std::vector<BusMessage> calls;
  for (const BusObject& frame : frames) {
    calls.push_back(bus_.Call(frame, kComponent, "GetExtents"));
    if (calls.back()) sd_bus_message_append(calls.back().get(), "u", placed ? kOnScreen : kInWindow);
    calls.push_back(PropertyCall(bus_, frame, kAccessible, "Name"));
  }
  const auto answers = bus_.Ask(std::move(calls), limit);
  std::optional<Frame> nearest;
  std::int64_t least = std::numeric_limits<std::int64_t>::max();
  for (std::size_t i = 0; i < frames.size(); ++i) {
    BusReader reader(answers[2 * i]);
    const BusReader::Four extents = reader.ReadFour();
    if (!reader.IsGood()) continue;
    const std::int32_t scale = Scale(question.spot.place.width, extents.third);
    std::int64_t distance = 2 * Distance(extents, question.spot.place, scale, placed);
    const bool hasTitle = !question.title.empty() && TextProperty(answers[2 * i + 1]) == question.title;
    const bool isAsLarge = IsAbout(extents.third, question.spot.place.width, scale) &&
                           IsAbout(extents.fourth, question.spot.place.height, scale);
    if (!hasTitle) ++distance;  // decides between equals
    if (distance >= least || (!hasTitle && !isAsLarge)) continue;
    least = distance;
    nearest = Frame{frames[i], scale, SizesApart(extents, question.spot.place, scale) <= 2 * scale, distance,
                    std::chrono::steady_clock::now()};
  }
  return nearest;
}

}  // namespace pointalk::linux
