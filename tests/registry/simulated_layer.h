// The registry layer on a simulated registry, of which calls can fail.
#pragma once

#include <gtest/gtest.h>

#include <string_view>

#include "registry/registry_layer.h"
#include "tests/registry/tallied_registry.h"
#include "tests/sim/simulated.h"
#include "tests/support/watched_platform.h"

namespace pointalk::testing {

inline constexpr std::string_view kSmallRegistry = R"({"machine": {"registry": {
    "HKEY_CURRENT_USER\\App": {"Name": "v", "Count": 4000000000, "": "default"},
    "HKEY_CURRENT_USER\\App\\Sub": {"a": "1"},
    "HKEY_CURRENT_USER\\App\\Sub\\Deep": {},
    "HKEY_CURRENT_USER\\App\\Sub 2": {},
    "HKEY_CURRENT_USER\\Apple": {"stays": "x"}}}})";

// Lets calls of the registry fail.
struct FailingCalls final : Watcher {
  bool Enter(const char* call) override {
    const std::string_view name = call;
    if (!name.starts_with("RegistryApi::")) return true;
    ++calls;
    return calls != failing && name != failingName;
  }
  void Leave() override {}

  int calls = 0;
  int failing = 0;               // the call of that number fails
  std::string_view failingName;  // and so does every call of that name
};

// A layer on a simulated registry.
struct Layer {
  explicit Layer(std::string_view script = kSmallRegistry)
      : simulated(script),
        watched(simulated.platform.Seam(), failures),
        tally(watched.Get().registry),
        layer(tally, simulated.platform.ansi) {}
  Layer(const Layer&) = delete;
  Layer& operator=(const Layer&) = delete;
  ~Layer() { EXPECT_TRUE(tally.open.empty()) << "keys were left open"; }

  bool HasKey(TextView path) { return simulated.machine.setup.registry.Find(path) != nullptr; }
  Text Description() const { return layer.Error().description; }

  sim::Simulated simulated;
  FailingCalls failures;
  WatchedPlatform watched;
  TalliedRegistry tally;
  RegistryLayer layer;
};

// Whichever call of these operations fails, they come back, leave no key open, and touch no other key.
inline void ExpectToOutliveFailures(void (*run)(RegistryLayer& layer)) {
  int calls = 0;
  {
    Layer healthy;
    run(healthy.layer);
    calls = healthy.failures.calls;
    EXPECT_EQ(healthy.layer.Error(), RegistryError());
  }
  ASSERT_GT(calls, 5);
  for (int failing = 1; failing <= calls; ++failing) {
    SCOPED_TRACE(failing);
    Layer on;
    on.failures.failing = failing;
    run(on.layer);
    EXPECT_GE(on.failures.calls, failing);
    EXPECT_TRUE(on.HasKey(u"HKEY_CURRENT_USER\\Apple"));
  }
}

}  // namespace pointalk::testing
