// The question to UI Automation about the element at a point. It has no time limit of its own.
#pragma once

#include <optional>

#include "platform/types.h"
#include "win32/automation_choice.h"
#include "win32/automation_client.h"
#include "win32/com.h"

namespace pointalk::win32 {

// For one thread, on which COM has to be there for as long as this lives.
class AutomationQuestion {
 public:
  // Everything is fetched at once. No value when there is no element, or no UI Automation.
  std::optional<AutomationAnswer> Ask(Point screen);

 private:
  bool IsReady();
  void Prepare();

  bool isPrepared_ = false;  // tried once
  ComPointer<AutomationClient> client_;
  ComPointer<AutomationCacheRequest> request_;
};

}  // namespace pointalk::win32
