// Waiting on the form's thread without leaving the desktop waiting.
#pragma once

#include <chrono>
#include <functional>

namespace pointalk::linux {

class Waiting {
 public:
  virtual ~Waiting() = default;

  // Returns once the condition holds, or after the limit. Meanwhile the program's windows are drawn and
  // answer other programs, but no event of the form comes in: those wait as well, but for ticks, which are
  // left out.
  virtual void WaitUntil(const std::function<bool()>& condition, std::chrono::milliseconds limit) = 0;
};

}  // namespace pointalk::linux
