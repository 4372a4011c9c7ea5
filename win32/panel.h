// The control panel's window.
#pragma once

#include <windows.h>

#include <optional>

#include "platform/panel.h"
#include "win32/panel_controls.h"
#include "win32/panel_events.h"
#include "win32/screens.h"
#include "win32/voice_thread.h"

namespace pointalk::win32 {

inline constexpr wchar_t kPanelClass[] = L"PointalkPanel";

class WinPanel final : public Panel {
 public:
  // The window is made hidden, and tells nobody anything before Serve.
  explicit WinPanel(const VoiceThread& voice, const ScreenQuestions& screens = {});
  ~WinPanel() override;
  WinPanel(const WinPanel&) = delete;
  WinPanel& operator=(const WinPanel&) = delete;

  HWND Window() const { return window_; }

  // From now on the form hears what happens; it has to stay for as long as messages are handled.
  void Serve(PanelEvents* events) { events_ = events; }

  // Handles messages until somebody ends the thread's message loop. A panel that was asked for earlier comes
  // to the front first.
  void Run();

  void Minimise() override;
  bool TimerEnabled() override { return timerEnabled_; }
  void SetTimerEnabled(bool enabled) override;
  void SetTimerInterval(int milliseconds) override;
  bool MenuChecked(TextView name) override;
  void SetMenuChecked(TextView name, bool checked) override;
  void LetMessagesRun() override;

 private:
  static LRESULT CALLBACK OnMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;

  std::optional<LRESULT> HandleEvent(UINT message, WPARAM wParam);
  std::optional<LRESULT> HandleWindow(UINT message, WPARAM wParam, LPARAM lParam);
  LRESULT HandleLater(UINT message, WPARAM wParam, LPARAM lParam);
  void HandOn(MSG& message);
  void ComeForward();
  void KeepFocus();
  void TellTick();
  void TellDevices();
  void TellCommand(UINT command);
  void Fit(POINT place);
  void LayOut(POINT place);
  void Resize(POINT place, SIZE inside);

  void ArmTimer();

  const VoiceThread& voice_;
  HWND window_ = nullptr;
  HMENU menu_ = nullptr;  // the window's
  OwnedAccelerators keys_;
  std::optional<PanelControls> controls_;
  ScreenQuestions screens_;
  UINT dpi_ = 0;          // that it was laid out for
  bool fits_ = false;     // is being laid out
  HWND focus_ = nullptr;  // the control that had the keyboard when the window last lost it
  PanelEvents* events_ = nullptr;
  bool runs_ = false;           // start-up, which minimises the panel, is over
  bool askedFor_ = false;       // by a second start, before that
  bool toComeForward_ = false;  // a second start's message, which it sends again and again, is posted

  bool timerEnabled_ = false;
  bool timerArmed_ = false;  // the system's timer runs, which may be so a moment longer than it is enabled
  int timerInterval_ = 30;   // milliseconds
};

}  // namespace pointalk::win32
