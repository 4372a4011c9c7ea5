// One named window of the target: a control whose answers its behaviour counts and may change.
#pragma once

#include <windows.h>

#include <functional>
#include <memory>
#include <string>

#include "wine/target/accessible.h"
#include "wine/target/behaviour.h"
#include "wine/target/ui_thread.h"

namespace pointalk::target {

// All but the name, the thread and the counters belongs to the window's own thread.
class TargetWindow {
 public:
  using CommandRunner = std::function<void(const std::string&)>;

  // base is the class whose procedure answers, in lower case; empty for a window that is no control. The
  // runner carries out commands that a rule asks for.
  TargetWindow(std::wstring name, std::wstring base, UiThread& thread, CommandRunner runner);

  const std::wstring& Name() const { return name_; }
  const std::wstring& Base() const { return base_; }
  UiThread& Thread() const { return thread_; }
  HWND Handle() const { return handle_; }
  Behaviour& Bent() const { return *behaviour_; }

  // Puts this window's procedure in front of the control's. keepAtBottom: below all others, whatever is
  // clicked.
  void Adopt(HWND handle, bool keepAtBottom);

  // Neither makes it active. Raise puts it above its siblings, or at the bottom if it is to stay there; Show
  // shows it above all, and only a Raise that comes after the thread has looked for messages is heeded. Both
  // give the description.
  std::string Show();
  std::string Raise();

  // Elements of the accessible object; the first one called for makes the window answer WM_GETOBJECT.
  Element& ElementAt(LONG id);
  void ForgetElements();

  // One JSON line about where it is and what it is.
  std::string Description() const;

 private:
  static LRESULT CALLBACK Procedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam);
  LRESULT Answer(UINT message, WPARAM wParam, LPARAM lParam);
  LRESULT AnswerStranger(UINT message, WPARAM wParam, LPARAM lParam);
  LRESULT AnswerByRule(const Rule& rule, UINT message, WPARAM wParam, LPARAM lParam);
  LRESULT AnswerText(const Rule& rule, UINT message, WPARAM wParam, LPARAM lParam);
  LRESULT AnswerAsBuilt(UINT message, WPARAM wParam, LPARAM lParam);
  LRESULT CallPrevious(UINT message, WPARAM wParam, LPARAM lParam);
  void Paint();

  std::wstring name_;
  std::wstring base_;
  UiThread& thread_;
  CommandRunner runner_;
  std::shared_ptr<Behaviour> behaviour_ = std::make_shared<Behaviour>();
  std::shared_ptr<ElementTable> elements_ = std::make_shared<ElementTable>();
  IAccessible* object_ = nullptr;
  HWND handle_ = nullptr;
  WNDPROC previous_ = nullptr;
  bool unicode_ = true;
  bool keepAtBottom_ = false;
};

}  // namespace pointalk::target
