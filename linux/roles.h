// What kinds of objects there are: their numbers in AT-SPI, the class names that the readers go by, and the
// roles that the listener hears.
#pragma once

#include <cstdint>
#include <string_view>

#include "text/text.h"

namespace pointalk::linux {

// Numbers of AT-SPI that are decided by.
enum AtspiRole : std::uint32_t {
  kRoleInvalid = 0,
  kRoleComboBox = 11,
  kRoleFrame = 23,
  kRoleIcon = 26,
  kRoleLabel = 29,
  kRoleListItem = 32,
  kRoleMenu = 33,
  kRolePageTab = 37,
  kRolePageTabList = 38,
  kRolePassword = 40,
  kRoleProgressBar = 42,
  kRolePushButton = 43,
  kRoleScrollBar = 48,
  kRoleSpinButton = 52,
  kRoleTableCell = 56,
  kRoleTerminal = 60,
  kRoleText = 61,
  kRoleParagraph = 73,
  kRoleEntry = 79,
  kRoleDocumentFrame = 82,
  kRoleHeading = 83,
  kRoleSection = 85,
  kRoleLink = 88,
  kRoleFirstDocument = 92,  // spreadsheet, presentation, text, web, mail
  kRoleLastDocument = 96,
  kRoleLevelBar = 103,
  kRoleStatic = 116,
};

// Numbers of Active Accessibility, which the seam counts roles by.
inline constexpr std::int32_t kSpokenTitleBar = 1;
inline constexpr std::int32_t kSpokenWindow = 9;
inline constexpr std::int32_t kSpokenText = 42;

struct Kind {
  TextView className;
  std::int32_t spokenRole = 0;
};

// The kind of an object by its number in AT-SPI; one that is not known is an "Object" of no role.
Kind KindOf(std::uint32_t atspiRole);

// The kind of an object of our own by the number of its role in Active Accessibility.
Kind KindOfSpoken(std::int32_t spokenRole);

// Kinds of objects that only hold others: they are not worth a word where they have no text.
bool IsHolder(std::uint32_t atspiRole);

// An entry of a menu, or a menu within one.
bool IsMenuEntry(std::uint32_t atspiRole);

// The text of a role by the seam's number; empty where there is none.
TextView SpokenRoleText(std::int32_t spokenRole);

}  // namespace pointalk::linux
