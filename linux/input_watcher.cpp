#include "linux/input_watcher.h"

#include <X11/XKBlib.h>
#include <X11/Xlib.h>
#include <X11/extensions/XInput2.h>
#include <X11/keysym.h>
#include <poll.h>
#include <sys/eventfd.h>

#include <array>
#include <future>
#include <tuple>

#include "linux/x_display.h"
#include "platform/input.h"

namespace pointalk::linux {
namespace {

// What this desktop's toolkits take for a double click.
constexpr DoubleClicks::Limits kDoubleClick{400, 10, 10};

struct ButtonMessages {
  std::int32_t down;
  std::int32_t up;
};
constexpr std::array<ButtonMessages, 4> kButtons = {{{0, 0}, {513, 514}, {519, 520}, {516, 517}}};  // from 1

// A button by the number that the user's settings make it, as for a left-handed mouse. Raw events tell the
// mouse's own.
int SetNumberOf(Display* display, int button) {
  std::array<unsigned char, 256> numbers{};
  const int count = XGetPointerMapping(display, numbers.data(), static_cast<int>(numbers.size()));
  return button >= 1 && button <= count ? numbers[static_cast<std::size_t>(button - 1)] : button;
}

}  // namespace

InputWatcher::InputWatcher(Receiver receiver)
    : receiver_(std::move(receiver)), wake_(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {
  std::promise<void> begun;
  auto ready = begun.get_future();
  thread_ = std::thread([this, &begun] {
    XDisplay display;
    working_ = display.IsOpen() && Select(display);
    begun.set_value();
    if (working_) HandleEvents(display);
  });
  ready.wait();
}

InputWatcher::~InputWatcher() {
  std::ignore = eventfd_write(wake_.Number(), 1);  // it cannot be full
  thread_.join();
}

bool InputWatcher::Report(bool on) {
  reports_ = on;
  return !on || working_;
}

bool InputWatcher::TakePress(int virtualKey) {
  switch (virtualKey) {
    case kKeyLeftButton: return leftPressed_.exchange(false);
    case kKeyShift: return shiftPressed_.exchange(false);
    case kKeyControl: return controlPressed_.exchange(false);
    case kKeyAlt: return altPressed_.exchange(false);
    default: return false;
  }
}

// Raw events come from version 2.1 on also while another program has grabbed the pointer, as an open menu
// has.
bool InputWatcher::Select(XDisplay& display) {
  int unused = 0;
  int major = 2;
  int minor = 1;
  if (!XQueryExtension(display.Connection(), "XInputExtension", &extension_, &unused, &unused)) return false;
  if (XIQueryVersion(display.Connection(), &major, &minor) != Success) return false;
  std::array<unsigned char, XIMaskLen(XI_LASTEVENT)> bits{};
  XISetMask(bits.data(), XI_RawButtonPress);
  XISetMask(bits.data(), XI_RawButtonRelease);
  XISetMask(bits.data(), XI_RawKeyPress);
  XIEventMask mask{XIAllMasterDevices, static_cast<int>(bits.size()), bits.data()};
  XISelectEvents(display.Connection(), display.Root(), &mask, 1);
  XSync(display.Connection(), False);
  return true;
}

void InputWatcher::HandleEvents(XDisplay& display) {
  std::array<pollfd, 2> files{
      {{ConnectionNumber(display.Connection()), POLLIN, 0}, {wake_.Number(), POLLIN, 0}}};
  while (display.IsOpen()) {
    while (XPending(display.Connection()) > 0) {
      XEvent event;
      XNextEvent(display.Connection(), &event);
      XGenericEventCookie& cookie = event.xcookie;
      if (cookie.type != GenericEvent || cookie.extension != extension_) continue;
      if (!XGetEventData(display.Connection(), &cookie)) continue;
      const auto& raw = *static_cast<const XIRawEvent*>(cookie.data);
      if (cookie.evtype == XI_RawKeyPress) {
        NoteKey(display, raw.detail);
      } else {
        NoteButton(display, SetNumberOf(display.Connection(), raw.detail), cookie.evtype == XI_RawButtonPress,
                   static_cast<std::uint32_t>(raw.time));
      }
      XFreeEventData(display.Connection(), &cookie);
    }
    poll(files.data(), files.size(), -1);
    if (files[1].revents != 0) return;
  }
}

void InputWatcher::NoteButton(XDisplay& display, int button, bool down, std::uint32_t time) {
  if (button < 1 || button >= static_cast<int>(kButtons.size())) return;
  if (button == 1 && down) leftPressed_ = true;
  if (!reports_) return;
  const ButtonMessages& messages = kButtons[static_cast<std::size_t>(button)];
  const Point place = display.AskPointer().value_or(XDisplay::Pointer{}).place;
  receiver_(clicks_.Report(down ? messages.down : messages.up, place, time, kDoubleClick));
}

void InputWatcher::NoteKey(XDisplay& display, int keyCode) {
  switch (XkbKeycodeToKeysym(display.Connection(), static_cast<KeyCode>(keyCode), 0, 0)) {
    case XK_Shift_L:
    case XK_Shift_R: shiftPressed_ = true; break;
    case XK_Control_L:
    case XK_Control_R: controlPressed_ = true; break;
    case XK_Alt_L:
    case XK_Alt_R: altPressed_ = true; break;
    default: break;
  }
}

}  // namespace pointalk::linux
