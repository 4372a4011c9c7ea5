// Sees every call to the seam: it may count it, time it, or let it fail without being made.
#pragma once

#include <tuple>

namespace pointalk::testing {

class Watcher {
 public:
  virtual ~Watcher() = default;

  // Before each call, with its name. False lets the call fail as its interface says failure looks; a call
  // whose interface knows no failure is made all the same.
  virtual bool Enter(const char* call) = 0;

  // After each call that was made.
  virtual void Leave() = 0;

  // How often the call that was entered is made, at least once; the last time's result counts.
  virtual int Times() { return 1; }

  // Makes a call, or gives what stands for its failure.
  template <class Result, class Call> Result Pass(const char* name, Result failure, Call call) {
    if (!Enter(name)) return failure;
    for (int times = Times(); times > 1; --times) std::ignore = call();
    Result result = call();
    Leave();
    return result;
  }
  template <class Call> void Pass(const char* name, Call call) {
    std::ignore = Enter(name);  // there is no result that could stand for a failure
    for (int times = Times(); times > 1; --times) call();
    call();
    Leave();
  }
};

}  // namespace pointalk::testing
