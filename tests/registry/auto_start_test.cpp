// The two commands for starting with Windows.
#include "registry/auto_start.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "tests/speech/speaking.h"

namespace pointalk {
namespace {

constexpr std::string_view kSet =
    R"(registry set "HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Run" "Pointalk" 1 "Pointalk.exe"
)";
constexpr std::string_view kDelete =
    R"(registry delete "HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Run" "Pointalk"
)";
constexpr std::string_view kConfirmedOn =
    R"(sapi5 speak 3 " "
sapi5 speak 3 "Now Pointalk will start automatically every time Windows is loaded. To make it NOT start automatically, see the Program menu above. Hit Enter."
box 0 "Pointalk" "Now Pointalk will start automatically every time Windows is loaded.\r\nTo make it NOT start automatically, see the Program menu above." -> 1
sapi5 speak 3 " "
sapi5 speak 3 "Thank you."
)";
constexpr std::string_view kConfirmedOff =
    R"(sapi5 speak 3 " "
sapi5 speak 3 "Now Pointalk will NOT start automatically every time Windows is loaded. To make it start automatically, see the Program menu above. Hit Enter."
box 0 "Pointalk" "Now Pointalk will NOT start automatically every time Windows is loaded.\r\nTo make it start automatically, see the Program menu above." -> 1
sapi5 speak 3 " "
sapi5 speak 3 "Thank you."
)";

std::string Lines(std::initializer_list<std::string_view> parts) {
  std::string lines;
  for (const std::string_view part : parts) lines += part;
  return lines;
}

// The commands, and what they need.
struct CommandsWithAVoice : Speaking {
  explicit CommandsWithAVoice(std::string_view script = "{}") : Speaking(script) {}

  // The values of the Run key by name.
  std::vector<NamedRegistryValue> Values() {
    return registry.EnumerateRegistryValues(u"HKLM\\Software\\Microsoft\\Windows\\CurrentVersion\\Run");
  }

  SpokenDialogs spokenDialogs{platform.dialogs, platform.panel, clicks, speaker};
  RegistryLayer registry{platform.registry, platform.ansi};
  AutoStart autoStart{registry, spokenDialogs};
};

TEST(AutoStart, WritesTheValueAndConfirms) {
  CommandsWithAVoice commands;
  commands.autoStart.mnuProgramMakeAutoStart_Click();
  EXPECT_EQ(commands.simulated.transcript(), Lines({kSet, kConfirmedOn}));
  EXPECT_EQ(commands.registry.Error(), RegistryError());
}

TEST(AutoStart, MadeTwiceLeavesOneValue) {
  CommandsWithAVoice commands;
  commands.autoStart.mnuProgramMakeAutoStart_Click();
  commands.autoStart.mnuProgramMakeAutoStart_Click();
  const auto values = commands.Values();
  ASSERT_EQ(values.size(), 1u);
  EXPECT_EQ(values[0].name, u"Pointalk");
  EXPECT_EQ(values[0].type, kStringType);
  EXPECT_EQ(values[0].value, Variant(Text(u"Pointalk.exe")));
}

TEST(AutoStart, UnmadeWithoutHavingBeenMadeWritesDeletesAndConfirms) {
  CommandsWithAVoice commands;
  commands.autoStart.mnuProgramMakeNotAutoStart_Click();
  EXPECT_EQ(commands.simulated.transcript(), Lines({kSet, kDelete, kConfirmedOff}));
  EXPECT_TRUE(commands.Values().empty());
  EXPECT_EQ(commands.registry.Error(), RegistryError());
}

TEST(AutoStart, LeavesTheOtherValuesOfTheRunKey) {
  CommandsWithAVoice commands(R"({"machine": {"registry": {
      "HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Run":
          {"Other": "other.exe", "Pointalk": "elsewhere"}}}})");
  commands.autoStart.mnuProgramMakeAutoStart_Click();
  EXPECT_EQ(commands.Values().size(), 2u);
  commands.autoStart.mnuProgramMakeNotAutoStart_Click();
  const auto values = commands.Values();
  ASSERT_EQ(values.size(), 1u);
  EXPECT_EQ(values[0].name, u"Other");
}

TEST(AutoStart, ConfirmsAlsoWhenDenied) {
  CommandsWithAVoice commands(R"({"machine": {"registryDenied": true}})");
  commands.autoStart.mnuProgramMakeAutoStart_Click();
  EXPECT_EQ(commands.registry.Error(), RegistryError());
  commands.autoStart.mnuProgramMakeNotAutoStart_Click();
  EXPECT_EQ(commands.simulated.transcript(), Lines({kConfirmedOn, kConfirmedOff}));
  EXPECT_EQ(commands.registry.Error(), RegistryError());
}

}  // namespace
}  // namespace pointalk
