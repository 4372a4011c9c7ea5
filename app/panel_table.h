// The control panel's menu and buttons: what stands where, under which name, caption and key. The window is
// built from this table, and a command is found in it by its control's name.
#pragma once

#include <span>

#include "text/text.h"

namespace pointalk {

class Mouse;

enum class Shortcut { kNone, kF1, kF11, kF12, kControlM };

using Handler = void (Mouse::*)();

struct MenuEntry {
  TextView name;
  TextView caption;  // "&" marks the access key
  Shortcut shortcut = Shortcut::kNone;
  bool checkedAtStart = false;
  Handler handler = nullptr;  // null for a top-level menu; the entries after it belong to it
};

struct PanelButton {
  TextView name;
  TextView caption;
  Handler handler = nullptr;
};

// In display order.
std::span<const MenuEntry> PanelMenu();
std::span<const PanelButton> PanelButtons();

// The handler of a menu entry or button; null for any other name.
Handler FindHandler(TextView controlName);

// The window's caption.
inline constexpr TextView kPanelCaption = u"Pointalk Control Center";

}  // namespace pointalk
