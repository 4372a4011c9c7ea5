// Where Pointalk begins: makes the seam and the form, and hands the window's events to the form.
#include <windows.h>

#include <objbase.h>

#include "app/mouse.h"
#include "win32/com.h"
#include "win32/one_pointalk.h"
#include "win32/program_folder.h"
#include "win32/throttling.h"
#include "win32/win_platform.h"

namespace pointalk::win32 {
namespace {

class FormEvents final : public PanelEvents {
 public:
  FormEvents(Mouse& form, WinSystem& system, WinMidiOut& midi) : form_(form), system_(system), midi_(midi) {}

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
    system_.EndAtOnce();
  }

 private:
  Mouse& form_;
  WinSystem& system_;
  WinMidiOut& midi_;
};

void RunPointalk() {
  LeaveSystemFolder();
  DisableProcessWindowsGhosting();  // while a long sentence is spoken the panel waits, but does not hang
  OptOutOfThrottling();
  WinPlatform platform;
  const ComThread com(COINIT_APARTMENTTHREADED);
  ShowToSecondStarts(platform.panel.Window());
  Mouse form(platform.Seam());
  FormEvents events(form, platform.system, platform.midi);
  platform.panel.Serve(&events);
  platform.clock.BeginSecond();
  form.Form_Load();
  platform.panel.Run();
  events.OnUnload();
}

}  // namespace
}  // namespace pointalk::win32

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
  if (pointalk::win32::BecomeTheOne()) pointalk::win32::RunPointalk();
  return 0;
}
