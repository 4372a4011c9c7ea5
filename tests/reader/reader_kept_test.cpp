// What is kept in this room although the program does not use it.
#include <gtest/gtest.h>

#include "tests/reader/strange_controls.h"
#include "tests/support/forwarding.h"

namespace pointalk {
namespace {

class VersionedSystem final : public testing::ForwardingSystem {
 public:
  using ForwardingSystem::ForwardingSystem;

  std::optional<SystemVersion> Version() override { return version; }

  std::optional<SystemVersion> version;
};

TEST(IsWindows95, HoldsForOneVersionOnly) {
  sim::Simulated simulated;
  VersionedSystem system(simulated.platform.system);
  EXPECT_FALSE(IsWindows95(system)) << "the system does not tell";
  constexpr struct {
    SystemVersion version;
    bool is;
  } kRows[] = {
      {{1, 4, 0}, true},  {{1, 4, 10}, false}, {{1, 4, 90}, false}, {{1, 3, 0}, false},
      {{2, 4, 0}, false}, {{2, 5, 1}, false},  {{0, 4, 0}, false},  {{2, 10, 0}, false},
  };
  for (const auto& row : kRows) {
    system.version = row.version;
    EXPECT_EQ(IsWindows95(system), row.is)
        << row.version.platform << " " << row.version.major << " " << row.version.minor;
  }
}

TEST(KeptDesktopWindows, TellTheVersionThatWasFoundWithThem) {
  sim::Simulated old(R"({"machine": {"windows95": true}})");
  sim::Simulated later;
  DesktopWindows desktop;
  desktop.FindDesktopIconList(old.platform.system, old.platform.windows);
  EXPECT_TRUE(desktop.AreOfWindows95());
  desktop.FindDesktopIconList(later.platform.system, later.platform.windows);
  EXPECT_FALSE(desktop.AreOfWindows95());
}

}  // namespace
}  // namespace pointalk
