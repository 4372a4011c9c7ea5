// A thread that asks other programs for their objects, so that nobody else has to wait for them.
#pragma once

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <optional>
#include <set>
#include <thread>

#include "linux/accessibility_switch.h"
#include "linux/bus.h"
#include "linux/found_object.h"
#include "linux/owned.h"

namespace pointalk::linux {

class ObjectFinder;

class ObjectWorker {
 public:
  // Asks the desktop for accessibility as long as it lives, and leaves that as it was.
  ObjectWorker();
  ~ObjectWorker();
  ObjectWorker(const ObjectWorker&) = delete;
  ObjectWorker& operator=(const ObjectWorker&) = delete;

  struct Answer {
    std::optional<FoundObject> found;
    bool isInTime = false;  // or that there is no object is not known
  };

  // Waits for the answer, a quarter of a second at most. A program that did not answer is not asked again
  // until it shows that it does.
  Answer Ask(const ObjectQuestion& question);

  // A question to that process is still out that nobody waits for any more.
  bool IsSilent(ProcessId process);

  // Tells once which bus the desktop turned out not to have; otherwise none.
  MissingBus TakeMissingBus();

  // Puts back what was asked of the desktop and ends the thread; waits for that a second at most.
  void End();

 private:
  // What the thread shares with its askers; it may outlive them.
  struct Shared;
  class Work;

  std::shared_ptr<Shared> shared_;
  std::thread thread_;
};

}  // namespace pointalk::linux
