// The windows of the simulated desktop and the accessible objects on it.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "platform/types.h"
#include "sim/edit.h"
#include "sim/list_box.h"
#include "sim/list_view.h"
#include "sim/rectangle.h"
#include "text/text.h"

namespace pointalk::sim {

// A menu as a script describes it.
struct MenuSetup {
  struct Item;
  std::vector<Item> items;
};

struct MenuSetup::Item {
  Text text;  // as the code page has it
  Rectangle place;
  std::optional<MenuSetup> submenu;
};

// What a script says of a window. What it leaves out has its default; in a change it stays as it is.
struct WindowFields {
  WindowHandle id = 0;
  std::optional<Text> className;
  std::optional<Text> title;
  std::optional<Rectangle> place;
  std::optional<WindowHandle> parent;
  std::optional<ProcessId> process;
  std::optional<bool> visible;
  std::optional<bool> hung;
  std::optional<MenuSetup> menu;
  std::optional<ListBox> listBox;
  std::optional<ListView> listView;
  std::optional<Edit> edit;
  std::optional<Edit> richEdit;
};

// Texts are as the code page has them.
struct Window {
  WindowHandle id = 0;
  Text className;
  Text title;
  Rectangle place;  // on the screen
  WindowHandle parent = 0;
  ProcessId process = 1;  // 0 when it is not told
  bool visible = true;
  bool hung = false;  // answers no message and no accessibility query
  MenuHandle menu = 0;
  std::optional<ListBox> listBox;
  std::optional<ListView> listView;
  std::optional<Edit> edit;
  std::optional<Edit> richEdit;

  bool HoldsPassword() const {
    return (edit && edit->HoldsPassword()) || (richEdit && richEdit->HoldsPassword());
  }

  Point ToClient(Point screen) const {
    return {static_cast<std::int32_t>(std::int64_t{screen.x} - place.left),
            static_cast<std::int32_t>(std::int64_t{screen.y} - place.top)};
  }
};

struct AccessibleObject {
  Rectangle place;
  std::optional<Text> name;
  std::optional<Text> role;  // the role's text
  std::optional<Text> description;
  std::optional<Text> value;
  bool isProtected = false;  // its value is a password
  bool fails = false;        // a query over it fails
  bool kills = false;        // a query over it never returns
};

}  // namespace pointalk::sim
