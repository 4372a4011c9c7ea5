#include "linux/things.h"

#include <unistd.h>

#include <utility>

#include "linux/roles.h"
#include "linux/utf8.h"
#include "text/text_rules.h"

namespace pointalk::linux {
namespace {

// Handles of windows carry the X server's number, of 29 bits, below these; those of objects are counted on
// from the third.
constexpr WindowHandle kWindows = WindowHandle{1} << 32;
constexpr WindowHandle kTitleBars = WindowHandle{2} << 32;
constexpr WindowHandle kOwnObjects = WindowHandle{3} << 32;
constexpr WindowHandle kObjects = WindowHandle{4} << 32;

// Each text of a thing may be long, and only things that were found lately are asked about.
constexpr std::size_t kMostThings = 256;
constexpr std::size_t kMostHandles = 4096;

std::optional<Text> UnlessEmpty(Text text) {
  if (text.empty()) return std::nullopt;
  return text;
}

// A scroll bar is told from other things by the name that the part of it has that is dragged.
constexpr TextView kScrollBarName = u"Position";

}  // namespace

const Thing& Things::At(Point screen) {
  if (things_.size() >= kMostThings) things_.clear();
  if (handles_.size() >= kMostHandles) handles_.clear();
  Thing found = Look(screen);
  found.pointer = {screen.x - found.origin.x, screen.y - found.origin.y};
  const Thing& thing = Keep(std::move(found));
  lastPoint_ = screen;
  lastThing_ = thing.handle;
  return thing;
}

const Thing& Things::Again(Point screen) {
  const bool isLast = std::exchange(lastPoint_, std::nullopt) == screen;
  const auto last = isLast ? things_.find(lastThing_) : things_.end();
  return last == things_.end() ? At(screen) : last->second;
}

Thing Things::Look(Point screen) {
  const XWindowSpot spot = windows_.At(screen);
  switch (spot.kind) {
    case XWindowSpot::Kind::kDesktop: return OfDesktop();
    case XWindowSpot::Kind::kTitleBar: return OfTitleBar(spot);
    default: break;
  }
  if (spot.process == static_cast<ProcessId>(getpid())) {
    Thing thing = OfWindow(spot);
    if (const auto own = OwnObjectAt(screen)) {
      thing.parent = thing.handle;
      thing.handle = kOwnObjects + own->number;
      thing.className = KindOfSpoken(own->facts.role.value_or(0)).className;
      thing.facts = own->facts;
      thing.hasFacts = true;  // also in an open menu, whose window tells nothing
      thing.isButton = Contains(thing.className, u"Button");
      thing.origin = own->origin;
    }
    return thing;
  }
  auto answer = worker_.Ask({screen, spot, display_.TitleOf(spot.window)});
  if (answer.found) return OfObject(spot, std::move(*answer.found));
  Thing thing = OfWindow(spot);
  // There may be something else in it: that it is a window is only said with its name.
  if (!answer.isInTime && !thing.facts.name) thing.className.clear();
  return thing;
}

Thing Things::OfDesktop() { return {}; }

Thing Things::OfTitleBar(const XWindowSpot& spot) {
  Thing thing;
  thing.handle = kTitleBars + spot.window;
  thing.window = spot.window;
  thing.frame = kWindows + spot.window;
  thing.process = spot.process;
  thing.className = u"TitleBar";
  thing.origin = spot.place.origin;
  thing.facts.role = kSpokenTitleBar;
  thing.facts.name = UnlessEmpty(TitleOf(thing));
  thing.hasFacts = true;
  return thing;
}

// A window of which no object is told. One whose program is known not to answer tells nothing; of any other
// the X server has the title.
Thing Things::OfWindow(const XWindowSpot& spot) {
  Thing thing;
  thing.handle = kWindows + spot.window;
  thing.window = spot.window;
  thing.frame = thing.handle;
  thing.process = spot.process;
  thing.origin = spot.place.origin;
  thing.isPopUp = spot.kind == XWindowSpot::Kind::kPopUp;
  if (thing.isPopUp) return thing;
  thing.className = u"Window";
  thing.hasFacts = !IsSilent(spot.process);
  if (!thing.hasFacts) return thing;
  thing.facts.role = kSpokenWindow;
  thing.facts.name = UnlessEmpty(TitleOf(thing));
  return thing;
}

Thing Things::OfObject(const XWindowSpot& spot, FoundObject found) {
  const Kind kind = KindOf(found.role);
  Thing thing;
  thing.window = spot.window;
  thing.frame = kWindows + spot.window;
  thing.process = spot.process;
  thing.origin = found.origin;
  thing.className = found.readByLine ? u"TextBox" : kind.className;
  const bool hasText = !IsBlank(found.name) || found.value || found.line;
  if (!hasText && IsHolder(found.role)) thing.className.clear();
  thing.isButton = Contains(thing.className, u"Button");
  thing.isPassword = found.role == kRolePassword;
  thing.facts.role = found.readByLine ? kSpokenText : kind.spokenRole;
  thing.facts.name = UnlessEmpty(std::move(found.name));
  if (found.role == kRoleScrollBar && !thing.facts.name) thing.facts.name = Text(kScrollBarName);
  thing.facts.description = UnlessEmpty(std::move(found.description));
  thing.facts.value = std::move(found.value);
  thing.hasFacts = true;
  thing.line = std::move(found.line);

  thing.parent = thing.frame;
  for (const BusObject& holder : found.above) {
    if (holder == found.above.front()) continue;  // the frame is the window
    Thing above;
    above.handle = HandleOf(holder);
    above.parent = std::exchange(thing.parent, above.handle);
    above.frame = thing.frame;
    above.window = thing.window;
    above.process = thing.process;
    if (!things_.contains(above.handle)) Keep(std::move(above));
  }
  thing.handle = found.isFrame ? thing.frame : HandleOf(found.object);
  if (found.isFrame) thing.parent = 0;
  return thing;
}

WindowHandle Things::HandleOf(const BusObject& object) {
  if (const auto known = handles_.find(object); known != handles_.end()) return known->second;
  const WindowHandle handle = kObjects + ++lastHandle_;
  handles_[object] = handle;
  return handle;
}

const Thing& Things::Keep(Thing thing) {
  if (thing.frame != 0 && thing.handle != thing.frame && !things_.contains(thing.frame)) {
    Thing frame;
    frame.handle = frame.frame = thing.frame;
    frame.window = thing.window;
    frame.process = thing.process;
    frame.className = u"Window";
    things_[frame.handle] = std::move(frame);
  }
  return things_[thing.handle] = std::move(thing);
}

const Thing* Things::Find(WindowHandle handle) const {
  const auto found = things_.find(handle);
  return handle == 0 || found == things_.end() ? nullptr : &found->second;
}

Text Things::TitleOf(const Thing& thing) {
  return thing.window == 0 ? Text() : FromUtf8(display_.TitleOf(thing.window));
}

}  // namespace pointalk::linux
