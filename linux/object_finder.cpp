#include "linux/object_finder.h"

#include <algorithm>
#include <tuple>

#include "linux/atspi_names.h"
#include "linux/roles.h"

namespace pointalk::linux {
namespace {

constexpr std::size_t kDeepest = 40;  // objects in each other that are gone through
constexpr int kHighestClimb = 2;
constexpr std::size_t kMostWalked = 2000;  // objects of an old GTK 4 window

constexpr char kNameMatch[] =
    "type='signal',sender='org.freedesktop.DBus',interface='org.freedesktop.DBus',member='NameOwnerChanged'";
constexpr char kFocusMatch[] =
    "type='signal',interface='org.a11y.atspi.Event.Object',member='StateChanged',arg0='focused'";

// Windows and what stands for whole programs: nothing within takes its words from there.
bool IsTop(std::uint32_t role) {
  constexpr std::uint32_t kTops[] = {14, 16, 19, 23, 28, 69, 75};
  return std::find(std::begin(kTops), std::end(kTops), role) != std::end(kTops);
}

// What has no words of its own but may stand for its holder: the inside of a text view, the parts of a combo
// box.
bool MayStandForHolder(std::uint32_t role) {
  return IsHolder(role) || role == kRoleMenu || role == kRoleText || role == kRoleEntry ||
         role == kRoleListItem - 1;
}

}  // namespace

ObjectFinder::ObjectFinder(Bus& bus) : bus_(bus), programs_(bus), facts_(bus) {
  std::ignore = bus_.Listen(kNameMatch, &OnNameChange, this);
  std::ignore = bus_.Listen(kFocusMatch, &OnFocus, this);
  BusMessage call = bus_.Call({kRegistry, "/org/a11y/atspi/registry"}, kRegistry, "RegisterEvent");
  if (call) sd_bus_message_append(call.get(), "s", "object:state-changed:focused");
  bus_.Tell(std::move(call));
}

int ObjectFinder::OnNameChange(sd_bus_message* signal, void* self, sd_bus_error* /*error*/) {
  auto& finder = *static_cast<ObjectFinder*>(self);
  const char* name = nullptr;
  const char* before = nullptr;
  const char* after = nullptr;
  if (sd_bus_message_read(signal, "sss", &name, &before, &after) < 0) return 0;
  if (*after != '\0') {
    finder.programs_.Expect();
  } else {
    finder.programs_.Forget(name);
    finder.focus_.erase(name);
    std::erase_if(finder.walked_, [name](const BusObject& frame) { return frame.program == name; });
  }
  return 0;
}

int ObjectFinder::OnFocus(sd_bus_message* signal, void* self, sd_bus_error* /*error*/) {
  const char* what = nullptr;
  int gained = 0;
  const char* const sender = sd_bus_message_get_sender(signal);
  const char* const path = sd_bus_message_get_path(signal);
  if (sd_bus_message_read(signal, "si", &what, &gained) < 0 || sender == nullptr || path == nullptr) return 0;
  if (gained != 0) static_cast<ObjectFinder*>(self)->focus_[sender] = {sender, path};
  return 0;
}

std::optional<FoundObject> ObjectFinder::Find(const ObjectQuestion& question, Moment limit) {
  const std::shared_ptr<Program> program = programs_.Of(question.spot.process, limit);
  if (program == nullptr || bus_.IsSilent(program->root.program)) return std::nullopt;
  return question.spot.kind == XWindowSpot::Kind::kPopUp ? FindInPopUp(*program, question, limit)
                                                         : FindInWindow(*program, question, limit);
}

std::optional<FoundObject> ObjectFinder::FindInWindow(Program& program, const ObjectQuestion& question,
                                                      Moment limit) {
  const auto frame = programs_.FrameOf(program, question, limit);
  if (!frame) return std::nullopt;
  const Measure measure = Measure::Of(question, program.toolkit, frame->scale);
  std::vector<BusObject> way = Descend(frame->object, program.toolkit, measure, limit);
  auto facts = facts_.Read(way.back(), measure, program.toolkit, limit);
  while (!facts && way.size() > 1) {  // it was told of, but is not there
    way.pop_back();
    facts = facts_.Read(way.back(), measure, program.toolkit, limit);
  }
  if (!facts) {
    program.frames.erase(question.spot.window);  // it may be another one by now
    return std::nullopt;
  }
  FoundObject found = Climb(std::move(*facts), measure, program.toolkit, limit);
  const auto itself = std::find(way.begin(), way.end(), found.object);
  way.erase(itself == way.end() ? way.end() - 1 : itself, way.end());
  found.isFrame = found.object == frame->object;
  found.above = std::move(way);
  return found;
}

// The focus follows the pointer in menus and lists that are open. Where it has not moved yet, whatever holds
// what has it is asked for the rest.
std::optional<FoundObject> ObjectFinder::FindInPopUp(const Program& program, const ObjectQuestion& question,
                                                     Moment limit) {
  const auto last = focus_.find(program.root.program);
  if (last == focus_.end()) return std::nullopt;
  const BusObject focus = last->second;  // it may move while it is asked
  const std::int32_t scale = program.frames.empty() ? 1 : program.frames.begin()->second.scale;
  const Measure measure = Measure::Of(question, program.toolkit, scale);
  const auto lies = [&measure](const Facts& facts) {
    return measure.coordinates == kInWindow || facts.width <= 0 || facts.Holds(measure);
  };
  auto facts = facts_.Read(focus, measure, program.toolkit, limit);
  if (!facts || IsTop(facts->found.role)) return std::nullopt;
  if (!facts->HasText() || !lies(*facts)) {
    const BusObject& holder = facts->HasText() ? facts->parent : facts->found.object;
    const BusObject other = holder.IsNull() ? BusObject{} : ChildAt(holder, measure, limit);
    if (other.IsNull()) return std::nullopt;
    facts = facts_.Read(other, measure, program.toolkit, limit);
    if (!facts || !facts->HasText() || IsTop(facts->found.role) || !lies(*facts)) return std::nullopt;
  }
  return std::move(facts->found);
}

// From the frame to the deepest object. Some toolkits give the next level, some the deepest at once.
std::vector<BusObject> ObjectFinder::Descend(const BusObject& frame, Toolkit toolkit, const Measure& measure,
                                             Moment limit) {
  std::vector<BusObject> way{frame};
  while (way.size() < kDeepest) {
    BusObject next = ChildAt(way.back(), measure, limit);
    if (next.IsNull() && way.size() == 1 && toolkit == Toolkit::kOldGtk4 &&
        std::find(walked_.begin(), walked_.end(), frame) == walked_.end()) {
      WalkOnce(frame, limit);
      next = ChildAt(frame, measure, limit);
    }
    if (next.IsNull() || std::find(way.begin(), way.end(), next) != way.end()) break;
    way.push_back(std::move(next));
  }
  return way;
}

BusObject ObjectFinder::ChildAt(const BusObject& object, const Measure& measure, Moment limit) {
  BusMessage call = bus_.Call(object, kComponent, "GetAccessibleAtPoint");
  if (call) sd_bus_message_append(call.get(), "iiu", measure.x, measure.y, measure.coordinates);
  return BusReader(bus_.Ask(std::move(call), limit)).ReadObject();
}

// What an old GTK 4 has not been asked for, it does not find by its place.
void ObjectFinder::WalkOnce(const BusObject& frame, Moment limit) {
  walked_.push_back(frame);
  std::vector<BusObject> level{frame};
  std::size_t seen = 0;
  while (!level.empty() && seen < kMostWalked) {
    std::vector<BusMessage> calls;
    calls.reserve(level.size());
    for (const BusObject& object : level) calls.push_back(bus_.Call(object, kAccessible, "GetChildren"));
    level.clear();
    for (const BusMessage& answer : bus_.Ask(std::move(calls), limit)) {
      for (BusObject& child : BusReader(answer).ReadObjects()) {
        if (!child.IsNull()) level.push_back(std::move(child));
      }
    }
    seen += level.size();
  }
}

// An object without any text may be the inside of one that has some.
FoundObject ObjectFinder::Climb(Facts facts, const Measure& measure, Toolkit toolkit, Moment limit) {
  FoundObject lowest = std::move(facts.found);
  facts.found = lowest;
  for (int level = 0; level < kHighestClimb; ++level) {
    if (facts.HasText() || !MayStandForHolder(facts.found.role) || facts.parent.IsNull()) break;
    auto holder = facts_.Read(facts.parent, measure, toolkit, limit);
    if (!holder || IsTop(holder->found.role)) break;
    facts = std::move(*holder);
  }
  return facts.HasText() || facts.found.readByLine ? std::move(facts.found) : std::move(lowest);
}

}  // namespace pointalk::linux
