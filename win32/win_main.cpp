// Where Pointalk begins: makes the seam and the form, and hands the window's events to the form.
#include <windows.h>

#include <objbase.h>

#include <optional>

#include "app/mouse.h"
#include "win32/com.h"
#include "win32/one_pointalk.h"
#include "win32/program_folder.h"
#include "win32/throttling.h"
#include "win32/trace.h"
#include "win32/traced_platform.h"
#include "win32/win_platform.h"

namespace pointalk::win32 {
namespace {

class FormEvents final : public PanelEvents {
 public:
  FormEvents(Mouse& form, System& system, WinMidiOut& midi) : form_(form), system_(system), midi_(midi) {}

  void OnTick() override { form_.Timer1_Timer(); }
  void OnMouse(std::int32_t message) override { form_.WinHook1_Message(message); }
  void OnClick() override { form_.Form_Click(); }
  void OnCommand(Handler handler) override { (form_.*handler)(); }
  bool OnDevices() override { return midi_.FollowDevices(); }
  void OnUnload() override {
    form_.Form_Terminate();
    system_.EndProgram();
  }
  void OnSessionEnd() override {
    form_.Form_Terminate();
    WinSystem::EndAtOnce();
  }

 private:
  Mouse& form_;
  System& system_;
  WinMidiOut& midi_;
};

void RunForm(WinPlatform& platform, const Platform& seam, Trace* trace) {
  Mouse form(seam);
  FormEvents events(form, seam.system, platform.midi);
  std::optional<TracedEvents> traced;
  if (trace != nullptr) traced.emplace(events, *trace);
  platform.panel.Serve(traced ? static_cast<PanelEvents*>(&*traced) : &events);
  platform.clock.BeginSecond();
  {
    const Trace::Event start(trace, "start");
    form.Form_Load();
  }
  platform.panel.Run();
  events.OnUnload();
}

void RunPointalk() {
  LeaveSystemFolder();
  DisableProcessWindowsGhosting();  // while a long sentence is spoken the panel waits, but does not hang
  OptOutOfThrottling();
  WinPlatform platform;
  const ComThread com(COINIT_APARTMENTTHREADED);
  ShowToSecondStarts(platform.panel.Window());
  const auto options = TraceOptionsOf(GetCommandLineW());
  if (!options) return RunForm(platform, platform.Seam(), nullptr);
  Trace trace(*options);
  const TracedPlatform traced(platform.Seam(), {platform.unresponsiveThreads, platform.voice, platform.midi},
                              trace);
  TraceSystem(trace, platform.system, {POINTALK_MAJOR, POINTALK_MINOR, POINTALK_PATCH});
  RunForm(platform, traced.Seam(), &trace);
}

}  // namespace
}  // namespace pointalk::win32

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
  if (pointalk::win32::BecomeTheOne()) pointalk::win32::RunPointalk();
  return 0;
}
