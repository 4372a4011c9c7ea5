// The control panel, its poll timer, and the events of the form.
#pragma once

#include <deque>
#include <functional>
#include <memory>

#include "linux/panel_events.h"
#include "linux/waiting.h"
#include "platform/panel.h"

namespace pointalk::linux {

class LinuxPanel final : public Panel, public Waiting {
 public:
  // The window is made hidden, and tells nobody anything before Serve.
  LinuxPanel();
  ~LinuxPanel() override;
  LinuxPanel(const LinuxPanel&) = delete;
  LinuxPanel& operator=(const LinuxPanel&) = delete;

  // From now on the form hears what happens; it has to stay for as long as events are handled.
  void Serve(PanelEvents* events) { events_ = events; }

  // Handles events until the program ends.
  void Run();

  // Shows the window in front of all others, with the keyboard.
  void BringUp();

  // A message of the mouse for the form; may come from any thread.
  void PostMouse(std::int32_t message);

  // The form is to be unloaded; comes through also while the form waits.
  void Unload();

  void Minimise() override;
  bool TimerEnabled() override { return timerEnabled_; }
  void SetTimerEnabled(bool enabled) override;
  void SetTimerInterval(int milliseconds) override;
  bool MenuChecked(TextView name) override;
  void SetMenuChecked(TextView name, bool checked) override;
  void LetMessagesRun() override;
  void WaitUntil(const std::function<bool()>& condition, std::chrono::milliseconds limit) override;

 private:
  struct Window;

  void Tell(std::function<void()> event);
  void TellHeldBack();
  void TellTick();

  std::unique_ptr<Window> window_;
  PanelEvents* events_ = nullptr;
  bool timerEnabled_ = false;
  int waits_ = 0;                               // that are under way, within each other
  std::deque<std::function<void()>> heldBack_;  // events that came meanwhile
  bool ticksOnce_ = false;                      // one tick more may come in
  bool mayTick_ = true;
};

}  // namespace pointalk::linux
