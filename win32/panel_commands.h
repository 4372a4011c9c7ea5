// The control panel's menu and keys, built from its table, and the numbers of its commands.
#pragma once

#include <windows.h>

#include "app/panel_table.h"
#include "win32/handles.h"

namespace pointalk::win32 {

// With access keys, shortcuts beside the captions and the check marks of the start. Null on failure.
HMENU MakePanelMenu();

OwnedAccelerators MakePanelAccelerators();

// The command of a menu entry; 0 for a name that is no entry.
UINT EntryCommand(TextView name);

// The command of a button by its place in the table.
UINT ButtonCommand(std::size_t index);

// Null for a number that is no command.
Handler HandlerOf(UINT command);

}  // namespace pointalk::win32
