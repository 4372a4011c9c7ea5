// The seam with a trace: every object of it that has something to tell is called through one that writes down
// when it was called and what came of it. Made only where a trace is asked for.
#pragma once

#include <array>
#include <memory>

#include "platform/platform.h"
#include "win32/midi_out.h"
#include "win32/panel_events.h"
#include "win32/trace.h"
#include "win32/unresponsive_threads.h"
#include "win32/voice_thread.h"

namespace pointalk::win32 {

class TracedPlatform {
 public:
  // What the objects of the seam share, and the trace shows.
  struct Shared {
    const UnresponsiveThreads& unresponsiveThreads;
    const VoiceThread& voice;
    const WinMidiOut& port;
  };

  // Keep all that is given alive longer than this.
  TracedPlatform(const Platform& base, const Shared& shared, Trace& trace);
  ~TracedPlatform();
  TracedPlatform(const TracedPlatform&) = delete;
  TracedPlatform& operator=(const TracedPlatform&) = delete;

  Platform Seam() const;

 private:
  struct Parts;

  Platform base_;
  std::unique_ptr<Parts> parts_;
};

// The form's events, each one an event of the trace.
class TracedEvents final : public PanelEvents {
 public:
  TracedEvents(PanelEvents& form, Trace& trace) : form_(form), trace_(trace) {}

  void OnTick() override;
  void OnMouse(std::int32_t message) override;
  void OnClick() override;
  void OnCommand(Handler handler) override;
  bool OnDevices() override;
  void OnUnload() override;
  void OnSessionEnd() override;

 private:
  PanelEvents& form_;
  Trace& trace_;
};

// What Pointalk's version, the system and its screens are.
void TraceSystem(Trace& trace, System& system, const std::array<int, 3>& version);

}  // namespace pointalk::win32
