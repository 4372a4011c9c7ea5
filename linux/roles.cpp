#include "linux/roles.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace pointalk::linux {
namespace {

// Roles that Active Accessibility does not know are counted from here by their number in AT-SPI.
constexpr std::int32_t kOwn = 1000;

// By the number in AT-SPI.
constexpr Kind kKinds[] = {
    {u"Object", 0},                     // 0
    {u"AcceleratorLabel", 41},          // 1
    {u"Alert", 8},                      // 2
    {u"Animation", 54},                 // 3
    {u"Arrow", 43},                     // 4
    {u"Calendar", kOwn + 5},            // 5
    {u"Canvas", 40},                    // 6
    {u"CheckButton", 44},               // 7
    {u"CheckMenuItem", 12},             // 8
    {u"ColorChooser", 18},              // 9
    {u"ColumnHeader", 25},              // 10
    {u"ComboBox", 46},                  // 11
    {u"DateEditor", 42},                // 12
    {u"DesktopIcon", 40},               // 13
    {u"DesktopFrame", 16},              // 14
    {u"Dial", 49},                      // 15
    {u"Dialog", 18},                    // 16
    {u"DirectoryPane", 16},             // 17
    {u"DrawingArea", 10},               // 18
    {u"FileChooser", 18},               // 19
    {u"Filler", 20},                    // 20
    {u"FocusTraversable", kOwn + 21},   // 21
    {u"FontChooser", 18},               // 22
    {u"Window", 9},                     // 23
    {u"GlassPane", 16},                 // 24
    {u"HtmlContainer", 15},             // 25
    {u"Icon", 40},                      // 26
    {u"Image", 40},                     // 27
    {u"InternalFrame", 9},              // 28
    {u"Label", 41},                     // 29
    {u"LayeredPane", 16},               // 30
    {u"List", 33},                      // 31
    {u"ListItem", 34},                  // 32
    {u"Menu", 12},                      // 33
    {u"MenuBar", 2},                    // 34
    {u"MenuItem", 12},                  // 35
    {u"OptionPane", 16},                // 36
    {u"PageTab", 37},                   // 37
    {u"PageTabList", 60},               // 38
    {u"Panel", 16},                     // 39
    {u"PasswordEntry", 42},             // 40
    {u"PopupMenu", 11},                 // 41
    {u"ProgressBar", 48},               // 42
    {u"PushButton", 43},                // 43
    {u"RadioButton", 45},               // 44
    {u"RadioMenuItem", 12},             // 45
    {u"RootPane", 16},                  // 46
    {u"RowHeader", 26},                 // 47
    {u"ScrollBar", 3},                  // 48
    {u"ScrollPane", 16},                // 49
    {u"Separator", 21},                 // 50
    {u"Slider", 51},                    // 51
    {u"Entry", 52},                     // 52
    {u"SplitPane", 16},                 // 53
    {u"StatusBar", 23},                 // 54
    {u"Table", 24},                     // 55
    {u"TableCell", 29},                 // 56
    {u"TableColumnHeader", 25},         // 57
    {u"TableRowHeader", 26},            // 58
    {u"TearoffMenuItem", 12},           // 59
    {u"Terminal", kOwn + 60},           // 60
    {u"Entry", 42},                     // 61
    {u"ToggleButton", 43},              // 62
    {u"ToolBar", 22},                   // 63
    {u"ToolTip", 13},                   // 64
    {u"Tree", 35},                      // 65
    {u"TreeTable", 35},                 // 66
    {u"Object", 0},                     // 67
    {u"Viewport", 16},                  // 68
    {u"Window", 9},                     // 69
    {u"Object", 0},                     // 70
    {u"Header", kOwn + 71},             // 71
    {u"Footer", kOwn + 72},             // 72
    {u"Paragraph", 41},                 // 73
    {u"Ruler", kOwn + 74},              // 74
    {u"Application", 14},               // 75
    {u"Autocomplete", 46},              // 76
    {u"Entry", 42},                     // 77
    {u"Embedded", kOwn + 78},           // 78
    {u"Entry", 42},                     // 79
    {u"Chart", 17},                     // 80
    {u"Caption", 41},                   // 81
    {u"DocumentFrame", 15},             // 82
    {u"Heading", kOwn + 83},            // 83
    {u"Page", 15},                      // 84
    {u"Section", 20},                   // 85
    {u"Object", kOwn + 86},             // 86
    {u"Form", 20},                      // 87
    {u"Link", 30},                      // 88
    {u"InputMethodWindow", 9},          // 89
    {u"TableRow", 28},                  // 90
    {u"TreeItem", 36},                  // 91
    {u"DocumentSpreadsheet", 15},       // 92
    {u"DocumentPresentation", 15},      // 93
    {u"Document", 15},                  // 94
    {u"DocumentWeb", 15},               // 95
    {u"DocumentEmail", 15},             // 96
    {u"Comment", kOwn + 97},            // 97
    {u"List", 33},                      // 98
    {u"Grouping", 20},                  // 99
    {u"ImageMap", 40},                  // 100
    {u"Notification", 8},               // 101
    {u"InfoBar", 8},                    // 102
    {u"LevelBar", 48},                  // 103
    {u"TitleBar", 1},                   // 104
    {u"BlockQuote", kOwn + 105},        // 105
    {u"Audio", kOwn + 106},             // 106
    {u"Video", kOwn + 107},             // 107
    {u"Definition", kOwn + 108},        // 108
    {u"Article", kOwn + 109},           // 109
    {u"Landmark", kOwn + 110},          // 110
    {u"Log", kOwn + 111},               // 111
    {u"Marquee", kOwn + 112},           // 112
    {u"Math", 55},                      // 113
    {u"Rating", kOwn + 114},            // 114
    {u"Timer", kOwn + 115},             // 115
    {u"Label", 41},                     // 116
    {u"MathFraction", kOwn + 117},      // 117
    {u"MathRoot", kOwn + 118},          // 118
    {u"Subscript", kOwn + 119},         // 119
    {u"Superscript", kOwn + 120},       // 120
    {u"DescriptionList", kOwn + 121},   // 121
    {u"DescriptionTerm", kOwn + 122},   // 122
    {u"DescriptionValue", kOwn + 123},  // 123
    {u"Footnote", kOwn + 124},          // 124
    {u"ContentDeletion", kOwn + 125},   // 125
    {u"ContentInsertion", kOwn + 126},  // 126
    {u"Mark", kOwn + 127},              // 127
    {u"Suggestion", kOwn + 128},        // 128
    {u"PushButton", 57},                // 129
    {u"SwitchButton", 44},              // 130
};

struct OwnRole {
  std::int32_t number;
  TextView text;
};

constexpr OwnRole kOwnRoles[] = {
    {kOwn + 5, u"calendar"},
    {kOwn + 21, u"focus traversable"},
    {kOwn + 60, u"terminal"},
    {kOwn + 71, u"header"},
    {kOwn + 72, u"footer"},
    {kOwn + 74, u"ruler"},
    {kOwn + 78, u"embedded"},
    {kOwn + 83, u"heading"},
    {kOwn + 86, u"redundant object"},
    {kOwn + 97, u"comment"},
    {kOwn + 105, u"block quote"},
    {kOwn + 106, u"audio"},
    {kOwn + 107, u"video"},
    {kOwn + 108, u"definition"},
    {kOwn + 109, u"article"},
    {kOwn + 110, u"landmark"},
    {kOwn + 111, u"log"},
    {kOwn + 112, u"marquee"},
    {kOwn + 114, u"rating"},
    {kOwn + 115, u"timer"},
    {kOwn + 117, u"math fraction"},
    {kOwn + 118, u"math root"},
    {kOwn + 119, u"subscript"},
    {kOwn + 120, u"superscript"},
    {kOwn + 121, u"description list"},
    {kOwn + 122, u"description term"},
    {kOwn + 123, u"description value"},
    {kOwn + 124, u"footnote"},
    {kOwn + 125, u"content deletion"},
    {kOwn + 126, u"content insertion"},
    {kOwn + 127, u"mark"},
    {kOwn + 128, u"suggestion"},
};

// By the number in Active Accessibility, in its words.
constexpr TextView kRoleTexts[] = {
    u"unknown object",
    u"title bar",
    u"menu bar",
    u"scroll bar",
    u"grip",
    u"sound",
    u"cursor",
    u"caret",
    u"alert",
    u"window",
    u"client",
    u"popup menu",
    u"menu item",
    u"tool tip",
    u"application",
    u"document",
    u"pane",
    u"chart",
    u"dialog",
    u"border",
    u"grouping",
    u"separator",
    u"tool bar",
    u"status bar",
    u"table",
    u"column header",
    u"row header",
    u"column",
    u"row",
    u"cell",
    u"link",
    u"help balloon",
    u"character",
    u"list",
    u"list item",
    u"outline",
    u"outline item",
    u"page tab",
    u"property page",
    u"indicator",
    u"graphic",
    u"text",
    u"editable text",
    u"push button",
    u"check box",
    u"radio button",
    u"combo box",
    u"drop down",
    u"progress bar",
    u"dial",
    u"hot key field",
    u"slider",
    u"spin box",
    u"diagram",
    u"animation",
    u"equation",
    u"drop down button",
    u"menu button",
    u"grid drop down button",
    u"white space",
    u"page tab list",
    u"clock",
    u"split button",
    u"IP address",
    u"outline button",
};

// Of our own windows' objects, by the number in Active Accessibility.
constexpr Kind kOwnKinds[] = {
    {u"TitleBar", 1},
    {u"MenuBar", 2},
    {u"ScrollBar", 3},
    {u"Window", 9},
    {u"", 10},
    {u"PopupMenu", 11},
    {u"MenuItem", 12},
    {u"Window", 14},
    {u"TextBox", 15},
    {u"", 16},
    {u"Dialog", 18},
    {u"", 20},
    {u"Separator", 21},
    {u"Link", 30},
    {u"List", 33},
    {u"ListItem", 34},
    {u"PageTab", 37},
    {u"Image", 40},
    {u"Label", 41},
    {u"Entry", 42},
    {u"PushButton", 43},
    {u"CheckButton", 44},
    {u"RadioButton", 45},
    {u"ComboBox", 46},
    {u"ProgressBar", 48},
    {u"Slider", 51},
    {u"Entry", 52},
};

// With a check mark, a menu within, plain, of a group, to be torn off.
constexpr std::uint32_t kMenuEntries[] = {8, 33, 35, 45, 59};
constexpr std::uint32_t kHolders[] = {0, 18, 20, 23, 30, 39, 46, 49, 68, 69, 75, 85, 99};

}  // namespace

Kind KindOf(std::uint32_t atspiRole) {
  return atspiRole < std::size(kKinds) ? kKinds[atspiRole] : kKinds[kRoleInvalid];
}

Kind KindOfSpoken(std::int32_t spokenRole) {
  for (const Kind& kind : kOwnKinds) {
    if (kind.spokenRole == spokenRole) return kind;
  }
  return {u"Object", spokenRole};
}

bool IsHolder(std::uint32_t atspiRole) {
  return std::find(std::begin(kHolders), std::end(kHolders), atspiRole) != std::end(kHolders);
}

bool IsMenuEntry(std::uint32_t atspiRole) {
  return std::find(std::begin(kMenuEntries), std::end(kMenuEntries), atspiRole) != std::end(kMenuEntries);
}

TextView SpokenRoleText(std::int32_t spokenRole) {
  if (spokenRole >= 0 && spokenRole < static_cast<std::int32_t>(std::size(kRoleTexts)))
    return kRoleTexts[static_cast<std::size_t>(spokenRole)];
  for (const OwnRole& role : kOwnRoles) {
    if (role.number == spokenRole) return role.text;
  }
  return {};
}

}  // namespace pointalk::linux
