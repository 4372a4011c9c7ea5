// What is asked of other programs, of the user and of the system, with a trace.
#pragma once

#include "platform/accessibility.h"
#include "platform/control_messages.h"
#include "platform/dialogs.h"
#include "platform/input.h"
#include "platform/panel.h"
#include "platform/system.h"
#include "win32/trace.h"
#include "win32/unresponsive_threads.h"

namespace pointalk::win32 {

class TracedInput final : public Input {
 public:
  TracedInput(Input& base, Trace& trace) : base_(base), trace_(trace) {}

  std::optional<Point> PointerPosition() override;
  bool KeyDown(int virtualKey) override;
  std::optional<ScreenSize> Screen() override { return base_.Screen(); }
  bool ReportMouse(bool on) override;

 private:
  Input& base_;
  Trace& trace_;
  std::optional<Point> last_ = Point{};  // what was told last
};

class TracedAccessibility final : public Accessibility {
 public:
  TracedAccessibility(Accessibility& base, const UnresponsiveThreads& unresponsiveThreads, Trace& trace)
      : base_(base), unresponsiveThreads_(unresponsiveThreads), trace_(trace) {}

  std::optional<AccessibleFacts> ObjectAt(Point screen) override;
  bool QueryPending(WindowHandle window) override { return base_.QueryPending(window); }
  Text RoleText(std::int32_t role, int capacity) override { return base_.RoleText(role, capacity); }

 private:
  Accessibility& base_;
  const UnresponsiveThreads& unresponsiveThreads_;
  Trace& trace_;
};

class TracedControlMessages final : public ControlMessages {
 public:
  TracedControlMessages(ControlMessages& base, const UnresponsiveThreads& unresponsiveThreads, Trace& trace)
      : base_(base), unresponsiveThreads_(unresponsiveThreads), trace_(trace) {}

  std::optional<std::int32_t> Send(WindowHandle window, std::uint32_t message, std::uint64_t wParam,
                                   std::uint64_t lParam) override;
  std::optional<Text> WindowText(WindowHandle window, std::int32_t capacity) override;
  std::optional<Text> EditLine(WindowHandle window, std::int32_t line, std::int32_t capacity) override;
  std::optional<Text> ListBoxText(WindowHandle window, std::int32_t item, std::int32_t length) override;

 private:
  template <typename Ask> std::optional<Text> AskForText(const char* name, Ask ask);

  ControlMessages& base_;
  const UnresponsiveThreads& unresponsiveThreads_;
  Trace& trace_;
};

class TracedDialogs final : public Dialogs {
 public:
  TracedDialogs(Dialogs& base, Trace& trace) : base_(base), trace_(trace) {}

  int AskByBox(TextView text, TextView title, int style) override;
  Text AskByInput(TextView prompt, TextView title, TextView proposed) override;

 private:
  Dialogs& base_;
  Trace& trace_;
};

class TracedPanel final : public Panel {
 public:
  TracedPanel(Panel& base, Trace& trace) : base_(base), trace_(trace) {}

  void Minimise() override { base_.Minimise(); }
  bool TimerEnabled() override { return base_.TimerEnabled(); }
  void SetTimerEnabled(bool enabled) override { base_.SetTimerEnabled(enabled); }
  void SetTimerInterval(int milliseconds) override { base_.SetTimerInterval(milliseconds); }
  bool MenuChecked(TextView name) override { return base_.MenuChecked(name); }
  void SetMenuChecked(TextView name, bool checked) override;
  void LetMessagesRun() override { base_.LetMessagesRun(); }

 private:
  Panel& base_;
  Trace& trace_;
};

// The trace is complete before the program ends.
class TracedSystem final : public System {
 public:
  TracedSystem(System& base, Trace& trace) : base_(base), trace_(trace) {}

  std::optional<SystemVersion> Version() override { return base_.Version(); }
  Text ProgramFolder() override { return base_.ProgramFolder(); }
  Text ShortPath(TextView path, int capacity) override { return base_.ShortPath(path, capacity); }
  bool SetClipboard(TextView text) override;
  bool ShellOpen(TextView operation, TextView file, TextView parameters, TextView directory,
                 int show) override;
  void EndProgram() override;

 private:
  System& base_;
  Trace& trace_;
};

}  // namespace pointalk::win32
