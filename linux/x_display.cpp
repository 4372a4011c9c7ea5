#include "linux/x_display.h"

#include <X11/Xatom.h>
#include <X11/Xlib.h>

#include <algorithm>

#include "linux/owned.h"

namespace pointalk::linux {
namespace {

constexpr long kLongestTitle = 4096;  // units of four bytes
constexpr long kMostNumbers = 64;

using XData = Owned<void, XFree>;

int IgnoreError(Display* /*display*/, XErrorEvent* /*error*/) { return 0; }
int IgnoreLoss(Display* /*display*/) { return 0; }

}  // namespace

void TakeXErrorsAsAnswers() {
  XSetErrorHandler(&IgnoreError);
  XSetIOErrorHandler(&IgnoreLoss);
}

void XDisplay::Closed::operator()(_XDisplay* display) const { XCloseDisplay(display); }

XDisplay::XDisplay() : display_(XOpenDisplay(nullptr)) {
  if (!display_) return;
  root_ = DefaultRootWindow(display_.get());
  XSetIOErrorExitHandler(display_.get(), &NoteLoss, this);
}

void XDisplay::NoteLoss(Display* /*display*/, void* self) { static_cast<XDisplay*>(self)->isLost_ = true; }

std::optional<XDisplay::Pointer> XDisplay::AskPointer() {
  XWindowId root = 0;
  XWindowId child = 0;
  Pointer pointer;
  int x = 0;
  int y = 0;
  int unusedX = 0;
  int unusedY = 0;
  if (!IsOpen() ||
      !XQueryPointer(display_.get(), root_, &root, &child, &x, &y, &unusedX, &unusedY, &pointer.mask))
    return std::nullopt;
  pointer.place = {x, y};
  return pointer;
}

XWindowId XDisplay::ChildAt(XWindowId window, Point screen) {
  int x = 0;
  int y = 0;
  XWindowId child = 0;
  if (!IsOpen() || !XTranslateCoordinates(display_.get(), root_, window, screen.x, screen.y, &x, &y, &child))
    return 0;
  return child;
}

std::vector<XWindowId> XDisplay::ChildrenOf(XWindowId window) {
  XWindowId root = 0;
  XWindowId parent = 0;
  XWindowId* children = nullptr;
  unsigned count = 0;
  if (!IsOpen() || !XQueryTree(display_.get(), window, &root, &parent, &children, &count)) return {};
  const XData owner(children);
  return {children, children + count};
}

bool XDisplay::Place::Holds(Point screen) const {
  return screen.x >= origin.x && screen.y >= origin.y && screen.x < origin.x + width &&
         screen.y < origin.y + height;
}

std::optional<XDisplay::Place> XDisplay::PlaceOf(XWindowId window) {
  XWindowAttributes facts{};
  if (!IsOpen() || !XGetWindowAttributes(display_.get(), window, &facts)) return std::nullopt;
  Place place{{},
              facts.width,
              facts.height,
              facts.map_state == IsViewable,
              facts.override_redirect != False,
              facts.c_class == InputOnly};
  XWindowId unused = 0;
  if (!XTranslateCoordinates(display_.get(), window, root_, 0, 0, &place.origin.x, &place.origin.y, &unused))
    return std::nullopt;
  return place;
}

XAtom XDisplay::AtomOf(const char* name) {
  const auto known =
      std::find_if(atoms_.begin(), atoms_.end(), [name](const auto& atom) { return atom.first == name; });
  if (known != atoms_.end()) return known->second;
  const XAtom atom = XInternAtom(display_.get(), name, False);
  atoms_.emplace_back(name, atom);
  return atom;
}

XDisplay::Property XDisplay::Read(XWindowId window, const char* name, long units) {
  if (!IsOpen()) return {};
  Property property;
  int format = 0;
  unsigned long count = 0;
  unsigned long left = 0;
  unsigned char* data = nullptr;
  const int outcome = XGetWindowProperty(display_.get(), window, AtomOf(name), 0, units, False,
                                         AnyPropertyType, &property.type, &format, &count, &left, &data);
  const XData owner(data);
  if (outcome != Success || data == nullptr) return {};
  if (format == 8) property.bytes.assign(reinterpret_cast<const char*>(data), count);
  const auto* const numbers = reinterpret_cast<const unsigned long*>(data);
  if (format == 32) property.numbers.assign(numbers, numbers + count);
  return property;
}

bool XDisplay::Has(XWindowId window, const char* property) { return Read(window, property, 0).type != None; }

std::optional<std::uint32_t> XDisplay::Number(XWindowId window, const char* property) {
  const Property read = Read(window, property, 1);
  if (read.numbers.empty()) return std::nullopt;
  return static_cast<std::uint32_t>(read.numbers.front());
}

std::vector<std::string> XDisplay::AtomNames(XWindowId window, const char* property) {
  std::vector<std::string> names;
  for (const unsigned long atom : Read(window, property, kMostNumbers).numbers) {
    const Owned<char, XFree> name(XGetAtomName(display_.get(), atom));
    if (name) names.emplace_back(name.get());
  }
  return names;
}

// A title in the older property is in an encoding that only its program knows; what is ASCII of it can be
// read.
std::string XDisplay::TitleOf(XWindowId window) {
  std::string title = Read(window, "_NET_WM_NAME", kLongestTitle).bytes;
  return title.empty() ? Read(window, "WM_NAME", kLongestTitle).bytes : title;
}

}  // namespace pointalk::linux
