// A platform in front of another one: every call passes a watcher.
#pragma once

#include <memory>

#include "platform/platform.h"
#include "tests/support/watcher.h"

namespace pointalk::testing {

// Keep the base and the watcher alive longer than this.
class WatchedPlatform {
 public:
  WatchedPlatform(const Platform& base, Watcher& watcher);
  ~WatchedPlatform();
  WatchedPlatform(const WatchedPlatform&) = delete;
  WatchedPlatform& operator=(const WatchedPlatform&) = delete;

  Platform Get();

 private:
  struct Parts;
  std::unique_ptr<Parts> parts_;
};

}  // namespace pointalk::testing
