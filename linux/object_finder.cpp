#include "linux/object_finder.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <string_view>
#include <tuple>

#include "linux/atspi_names.h"
#include "linux/roles.h"

namespace pointalk::linux {
namespace {

constexpr std::size_t kDeepest = 40;  // objects in each other that are gone through
constexpr int kHighestClimb = 2;
constexpr int kHighestHolder = 4;          // of an item in a pop-up
constexpr std::size_t kMostWalked = 2000;  // objects of an old GTK 4 window
constexpr std::size_t kAskedAtOnce = 100;  // of them, so that a walk gets on within the limit

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
  AskForFocus();
}

// Programs send only what their desktop's registry has been asked for.
void ObjectFinder::AskForFocus() {
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
  // The next one knows nobody, and is started by this.
  if (*before != '\0' && std::string_view(name) == kRegistry) finder.AskForFocus();
  if (*after != '\0') {
    finder.programs_.Expect();
  } else {
    finder.programs_.Forget(name);
    finder.focus_.erase(name);
    std::erase_if(finder.walks_, [name](const auto& walk) { return walk.first.program == name; });
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
  std::shared_ptr<Program> nearest;
  std::optional<Frame> frame;
  for (const std::shared_ptr<Program>& program : programs_.Of(question.spot.process, limit)) {
    if (bus_.IsSilent(program->root.program)) continue;
    if (question.spot.kind == XWindowSpot::Kind::kPopUp) {
      if (auto found = FindInPopUp(*program, question, limit)) return found;
      continue;
    }
    const auto its = programs_.FrameOf(*program, question, limit);
    if (!its || (frame && frame->distance <= its->distance)) continue;
    nearest = program;
    frame = its;
  }
  return frame ? FindInWindow(*nearest, *frame, question, limit) : std::nullopt;
}

std::optional<FoundObject> ObjectFinder::FindInWindow(Program& program, const Frame& frame,
                                                      const ObjectQuestion& question, Moment limit) {
  const Measure measure = Measure::Of(question, program.toolkit, frame.scale);
  std::vector<BusObject> way = Descend(frame.object, program.toolkit, measure, limit);
  auto facts = facts_.Read(way.back(), measure, program.toolkit, limit);
  while (facts && facts->found.role == kRolePageTabList && GoIntoSelectedPage(way, measure, limit))
    facts = facts_.Read(way.back(), measure, program.toolkit, limit);
  // It was told of, but is not there. A tab of GTK 3 tells of its page wherever the point is.
  while (way.size() > 1 && (!facts || facts_.MissesTab(*facts, measure, limit))) {
    way.pop_back();
    facts = facts_.Read(way.back(), measure, program.toolkit, limit);
  }
  if (!facts) {
    program.frames.erase(question.spot.window);  // it may be another one by now
    return std::nullopt;
  }
  if (facts->found.role == kRoleTableCell && !facts->HasText())
    facts->found.name = facts_.NameOfEntry(*facts, limit);
  FoundObject found = Climb(std::move(*facts), measure, program.toolkit, limit);
  const auto itself = std::find(way.begin(), way.end(), found.object);
  way.erase(itself == way.end() ? way.end() - 1 : itself, way.end());
  found.isFrame = found.object == frame.object;
  found.above = std::move(way);
  return found;
}

std::optional<FoundObject> ObjectFinder::FindInPopUp(const Program& program, const ObjectQuestion& question,
                                                     Moment limit) {
  const std::int32_t scale = program.frames.empty() ? 1 : program.frames.begin()->second.scale;
  const Measure measure = Measure::Of(question, program.toolkit, scale);
  if (auto found = FindByFocus(program, question, measure, limit)) return found;
  if (measure.coordinates == kInWindow) return std::nullopt;
  const BusObject own = programs_.WindowAt(program, question.spot.place, scale, limit);
  if (own.IsNull()) return std::nullopt;
  auto facts =
      facts_.Read(Descend(own, program.toolkit, measure, limit).back(), measure, program.toolkit, limit);
  if (!facts || IsTop(facts->found.role)) return std::nullopt;
  return Climb(std::move(*facts), measure, program.toolkit, limit);
}

// The focus follows the pointer in menus and lists that are open. Where it has not moved yet, whatever holds
// what has it is asked for the rest. It may also have stayed in a window below, as in the field that a list
// of completions belongs to; that list covers what is found there.
std::optional<FoundObject> ObjectFinder::FindByFocus(const Program& program, const ObjectQuestion& question,
                                                     const Measure& measure, Moment limit) {
  const auto last = focus_.find(program.root.program);
  if (last == focus_.end()) return std::nullopt;
  const BusObject focus = last->second;  // it may move while it is asked
  const auto lies = [&measure](const Facts& facts) {
    return measure.coordinates == kInWindow || facts.width <= 0 || facts.Holds(measure);
  };
  auto facts = facts_.Read(focus, measure, program.toolkit, limit);
  if (!facts || IsTop(facts->found.role) || !IsInPopUp(*facts, program, question, measure, limit))
    return std::nullopt;
  if (!facts->HasText() || !lies(*facts)) {
    const BusObject& holder = facts->HasText() ? facts->parent : facts->found.object;
    const BusObject other = holder.IsNull() ? BusObject{} : ChildAt(holder, measure, limit);
    if (other.IsNull()) return std::nullopt;
    facts = facts_.Read(other, measure, program.toolkit, limit);
    if (!facts || !facts->HasText() || IsTop(facts->found.role) || !lies(*facts)) return std::nullopt;
  }
  return std::move(facts->found);
}

// An item is in a pop-up that is large enough for a holder of it; of a long list only what is around it fits.
// What holds an entry of a menu may be the menu's title, which lies beside the pop-up. An item that tells no
// place is taken at its word.
bool ObjectFinder::IsInPopUp(const Facts& item, const Program& program, const ObjectQuestion& question,
                             const Measure& measure, Moment limit) {
  if (measure.coordinates == kInWindow || item.width <= 0) return true;
  const auto fits = [&](const Facts& facts) { return facts.LiesIn(question.spot.place, measure); };
  if ((!item.HasText() || IsMenuEntry(item.found.role)) && fits(item)) return true;
  BusObject holder = item.parent;
  for (int level = 0; level < kHighestHolder && !holder.IsNull(); ++level) {
    const auto facts = facts_.Read(holder, measure, program.toolkit, limit);
    if (!facts || IsTop(facts->found.role)) return false;
    if (fits(*facts)) return true;
    holder = facts->parent;
  }
  return false;
}

// From the frame to the deepest object.
std::vector<BusObject> ObjectFinder::Descend(const BusObject& frame, Toolkit toolkit, const Measure& measure,
                                             Moment limit) {
  std::vector<BusObject> way{frame};
  GoDown(way, measure, limit);
  if (way.size() == 1 && toolkit == Toolkit::kOldGtk4 && WalkOn(frame, limit)) GoDown(way, measure, limit);
  return way;
}

// Some toolkits give the next level, some the deepest at once. What was passed before is the end.
void ObjectFinder::GoDown(std::vector<BusObject>& way, const Measure& measure, Moment limit) {
  while (way.size() < kDeepest) {
    BusObject next = ChildAt(way.back(), measure, limit);
    if (next.IsNull() || std::find(way.begin(), way.end(), next) != way.end()) break;
    way.push_back(std::move(next));
  }
}

// In GTK 3 what is on a page belongs to its tab, which is found at its own place only. False where the list
// of tabs has no page at that place.
bool ObjectFinder::GoIntoSelectedPage(std::vector<BusObject>& way, const Measure& measure, Moment limit) {
  BusObject tab = facts_.SelectedChild(way.back(), limit);
  if (tab.IsNull() || std::find(way.begin(), way.end(), tab) != way.end()) return false;
  const std::size_t before = way.size();
  way.push_back(std::move(tab));
  GoDown(way, measure, limit);
  if (way.size() > before + 1) return true;
  way.pop_back();
  return false;
}

BusObject ObjectFinder::ChildAt(const BusObject& object, const Measure& measure, Moment limit) {
  BusMessage call = bus_.Call(object, kComponent, "GetAccessibleAtPoint");
  if (call) sd_bus_message_append(call.get(), "iiu", measure.x, measure.y, measure.coordinates);
  return BusReader(bus_.Ask(std::move(call), limit)).ReadObject();
}

// What an old GTK 4 has not been asked for, it does not find by its place. It is walked through once; a walk
// that the limit ends goes on the next time. False when it was over before, and where the program ended while
// it was asked, which ends its walk.
bool ObjectFinder::WalkOn(const BusObject& frame, Moment limit) {
  const auto [entry, isNew] = walks_.try_emplace(frame);
  Walk& walk = entry->second;
  if (isNew) walk.open.push_back(frame);
  const auto isOver = [&walk] { return walk.open.empty() || walk.seen >= kMostWalked; };
  if (isOver()) return false;
  while (!isOver()) {
    const auto count = static_cast<std::ptrdiff_t>(std::min(walk.open.size(), kAskedAtOnce));
    std::vector<BusMessage> calls;
    calls.reserve(kAskedAtOnce);
    std::transform(walk.open.begin(), walk.open.begin() + count, std::back_inserter(calls),
                   [this](const BusObject& object) { return bus_.Call(object, kAccessible, "GetChildren"); });
    const std::vector<BusMessage> answers = bus_.Ask(std::move(calls), limit);
    if (!walks_.contains(frame)) return false;
    if (bus_.IsSilent(frame.program) || std::chrono::steady_clock::now() >= limit) break;
    walk.open.erase(walk.open.begin(), walk.open.begin() + count);
    for (const BusMessage& answer : answers) {
      for (BusObject& child : BusReader(answer).ReadObjects()) {
        if (child.IsNull()) continue;
        walk.open.push_back(std::move(child));
        ++walk.seen;
      }
    }
  }
  return true;
}

// An object without any text may be the inside of one that has some. The closed list of a combo box of
// Firefox knows which of its entries is shown, the combo box does not.
FoundObject ObjectFinder::Climb(Facts facts, const Measure& measure, Toolkit toolkit, Moment limit) {
  FoundObject lowest = std::move(facts.found);
  facts.found = lowest;
  for (int level = 0; level < kHighestClimb; ++level) {
    if (facts.HasText() || !MayStandForHolder(facts.found.role) || facts.parent.IsNull()) break;
    auto holder = facts_.Read(facts.parent, measure, toolkit, limit);
    if (!holder || IsTop(holder->found.role)) break;
    const bool isClosedList = facts.found.role == kRoleMenu && holder->found.role == kRoleComboBox;
    if (isClosedList && !holder->HasText()) {
      const BusObject shown = facts_.SelectedChild(facts.found.object, limit);
      if (!shown.IsNull()) holder->found.name = facts_.NameOf(shown, limit);
    }
    facts = std::move(*holder);
  }
  return facts.HasText() || facts.found.readByLine ? std::move(facts.found) : std::move(lowest);
}

}  // namespace pointalk::linux
