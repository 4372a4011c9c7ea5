// Seam: the control panel's window, its poll timer and the check marks of its menu.
#pragma once

#include "text/text.h"

namespace pointalk {

class Panel {
 public:
  virtual ~Panel() = default;

  virtual void Minimise() = 0;

  virtual bool TimerEnabled() = 0;
  virtual void SetTimerEnabled(bool enabled) = 0;
  virtual void SetTimerInterval(int milliseconds) = 0;  // above 0; takes effect only where it differs

  // The check mark of a menu entry, by the entry's name; false for a name that is no entry.
  virtual bool MenuChecked(TextView name) = 0;
  virtual void SetMenuChecked(TextView name, bool checked) = 0;

  // Lets window messages that are waiting be handled; events of the form may run inside, one tick at most.
  virtual void LetMessagesRun() = 0;
};

}  // namespace pointalk
