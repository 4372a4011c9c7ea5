#include "win32/traced_platform.h"

#include <windows.h>

#include <string>

#include "win32/late_procedure.h"
#include "win32/traced_devices.h"
#include "win32/traced_questions.h"

namespace pointalk::win32 {

struct TracedPlatform::Parts {
  Parts(const Platform& base, const Shared& shared, Trace& trace)
      : input(base.input, trace),
        messages(base.messages, shared.unresponsiveThreads, trace),
        accessibility(base.accessibility, shared.unresponsiveThreads, trace),
        midi(base.midi, shared.port, trace),
        sapi5(base.sapi5, shared.voice, trace),
        sapi4(base.sapi4, shared.voice, trace),
        dialogs(base.dialogs, trace),
        panel(base.panel, trace),
        system(base.system, trace) {}

  TracedInput input;
  TracedControlMessages messages;
  TracedAccessibility accessibility;
  TracedMidiOut midi;
  TracedSapi5Voice sapi5;
  TracedSapi4Control sapi4;
  TracedDialogs dialogs;
  TracedPanel panel;
  TracedSystem system;
};

TracedPlatform::TracedPlatform(const Platform& base, const Shared& shared, Trace& trace)
    : base_(base), parts_(std::make_unique<Parts>(base, shared, trace)) {}

TracedPlatform::~TracedPlatform() = default;

Platform TracedPlatform::Seam() const {
  return {parts_->input, base_.windows,  parts_->messages,      base_.memory,
          base_.ansi,    base_.menus,    parts_->accessibility, parts_->midi,
          parts_->sapi5, parts_->sapi4,  parts_->dialogs,       parts_->panel,
          base_.files,   base_.registry, base_.clock,           parts_->system};
}

void TracedEvents::OnTick() {
  const Trace::Event event(&trace_, "tick");
  form_.OnTick();
}

void TracedEvents::OnMouse(std::int32_t message) {
  const Trace::Event event(&trace_, "mouse");
  trace_.Step("message " + std::to_string(message));
  form_.OnMouse(message);
}

void TracedEvents::OnClick() {
  const Trace::Event event(&trace_, "click on the panel");
  form_.OnClick();
}

void TracedEvents::OnCommand(Handler handler) {
  const Trace::Event event(&trace_, "command");
  trace_.Step("begun");
  form_.OnCommand(handler);
}

bool TracedEvents::OnDevices() {
  const bool done = form_.OnDevices();
  if (done) trace_.State("devices came or went, or the machine woke up");
  return done;
}

void TracedEvents::OnUnload() {
  trace_.State("the panel is closed");
  form_.OnUnload();
}

void TracedEvents::OnSessionEnd() {
  trace_.State("the session ends");
  trace_.Finish();
  form_.OnSessionEnd();
}

void TraceSystem(Trace& trace, System& system, const std::array<int, 3>& version) {
  const auto windows = system.Version().value_or(SystemVersion{});
  trace.State("Pointalk " + std::to_string(version[0]) + "." + std::to_string(version[1]) + "." +
              std::to_string(version[2]) + ", " + std::to_string(8 * sizeof(void*)) + " bits, Windows " +
              std::to_string(windows.major) + "." + std::to_string(windows.minor) + ", code page " +
              std::to_string(GetACP()));
  trace.State("screens: " + std::to_string(GetSystemMetrics(SM_CMONITORS)) + ", the first of " +
              std::to_string(GetSystemMetrics(SM_CXSCREEN)) + " x " +
              std::to_string(GetSystemMetrics(SM_CYSCREEN)) + ", double click " +
              std::to_string(GetDoubleClickTime()) + " ms");
  const bool exact = LateProcedure<void (*)()>(L"user32.dll", "SetCoalescableTimer") != nullptr;
  trace.State(exact ? "timers are exact" : "timers are those of an older system");
  trace.State("times in ms: of a tick since the pointer moved, of other events since they began");
}

}  // namespace pointalk::win32
