// What stands inside the controls, and where it is on the screen.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "wine/target/target_window.h"

namespace pointalk::target {

// Replaces the items of a list box, combo box, list view, tree view (a tab before a text puts it under the
// last item without one), tab control or tool bar. Throws CommandError for any other window.
void ReplaceItems(const TargetWindow& window, const std::vector<std::wstring>& texts);

// Replaces the items of an owner-drawn list box without strings by their numbers.
void ReplaceItemData(const TargetWindow& window, const std::vector<std::int64_t>& data);

// The place on the screen of an `item`, an item's `label`, a `char` of a text or a `menu` title. Throws
// CommandError when there is none.
RECT PlaceOf(const TargetWindow& window, const std::wstring& what, int index);

}  // namespace pointalk::target
