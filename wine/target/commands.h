// The command channel: one line in, one JSON line out.
//
//   create NAME class=C rect=L,T,R,B [title=T] [base=C] [parent=NAME] [thread=T] [kind=K | style=N]
//   [exstyle=N]
//          [ansi=1] [frame=1] [hidden=1] [bottom=1] [topmost=1]
//          a window; rectangles are screen pixels. base: the system class that a class of another name is
//          made of. kind: check, radio, group (button), editable, simple (combo box), multiline, password
//          (edit), password (rich edit), ownerdrawn (list box), report (list view), vertical (scroll bar).
//          Windows of one thread hang together; a child has its parent's.
//   items NAME TEXT...            replaces the items of a control
//   data NAME NUMBER...           the same for an owner-drawn list box without strings
//   menu NAME TITLE ITEM...       appends a drop-down menu; "-" is a separator
//   element NAME ID [name=] [value=] [description=] [role=] [roletype=] [state=N|none]
//   [statetext=] [rect=] [fails=name,value,...] [object=1]
//          a part of the window's own accessible object; 0 is the whole. forget NAME: no such object any more
//   conceal NAME                  from now on a text field, or a combo box's, has a password character
//   title NAME TEXT | move NAME L T R B | show NAME | hide NAME | raise NAME | foreground NAME | destroy NAME
//   send NAME MESSAGE WPARAM LPARAM      to itself; {"result": n}
//   where NAME item|label|char|menu INDEX       {"rect": [...]} on the screen
//   rule NAME MESSAGE die | result N | delay MS | hold | text TEXT [RESULT] | hit ITEM FLAGS | then COMMAND
//          how messages and accessibility calls of other programs are answered; "*" is any of them.
//          unrule NAME [MESSAGE]: as built again
//   hang NAME                     the window's thread answers nothing
//   wake NAME                     and now it does again
//   counts [NAME] | reset         what other programs have sent since the start or the last reset
//   memory                        small private blocks of the process
//   windows                       all windows
//   quit
#pragma once

#include <atomic>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "wine/target/target_window.h"
#include "wine/target/text.h"
#include "wine/target/ui_thread.h"

namespace pointalk::target {

class Commands {
 public:
  explicit Commands(bool unaware) : unaware_(unaware) {}

  // The reply to a line; what goes wrong is in it as {"error": ...}. Callable from any thread.
  std::string Run(const std::string& line);

  bool Ended() const { return ended_; }
  // Descriptions of all windows, one JSON object each, in the order of their making.
  std::vector<std::string> Windows();

 private:
  using WindowPointer = std::shared_ptr<TargetWindow>;
  using WindowCommand = std::string (Commands::*)(const CommandLine&, TargetWindow&);

  std::string Carry(const CommandLine& line);
  std::string RunOnWindow(const CommandLine& line, WindowCommand command);
  WindowPointer Find(const std::wstring& name);
  std::vector<WindowPointer> Living();
  UiThread& ThreadNamed(const std::wstring& name);

  std::string Create(const CommandLine& line);
  std::string Show(TargetWindow& window);
  std::string Counts(const CommandLine& line);
  std::string Reset();
  std::string AddRule(const CommandLine& line);
  std::string RemoveRules(const CommandLine& line);

  std::string Items(const CommandLine& line, TargetWindow& window);
  std::string Data(const CommandLine& line, TargetWindow& window);
  std::string Menu(const CommandLine& line, TargetWindow& window);
  std::string ElementOf(const CommandLine& line, TargetWindow& window);
  std::string Forget(const CommandLine& line, TargetWindow& window);
  std::string Title(const CommandLine& line, TargetWindow& window);
  std::string Conceal(const CommandLine& line, TargetWindow& window);
  std::string Move(const CommandLine& line, TargetWindow& window);
  std::string Hide(const CommandLine& line, TargetWindow& window);
  std::string Raise(const CommandLine& line, TargetWindow& window);
  std::string Foreground(const CommandLine& line, TargetWindow& window);
  std::string Destroy(const CommandLine& line, TargetWindow& window);
  std::string Send(const CommandLine& line, TargetWindow& window);
  std::string Where(const CommandLine& line, TargetWindow& window);

  const bool unaware_;  // of the screen's scale
  std::mutex mutex_;    // guards the lists; never held while a window's thread is waited for
  std::vector<WindowPointer> windows_;
  std::map<std::wstring, std::unique_ptr<UiThread>> threads_;
  std::atomic<bool> ended_ = false;
};

}  // namespace pointalk::target
