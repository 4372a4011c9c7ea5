// Ready-made sets of windows for a desktop of 1024 x 768, as lines of the command channel.
#pragma once

#include <string>
#include <vector>

namespace pointalk::target {

// The lines of a layout: desktop, controls, texts, menus, elements, roles, or all of them. Throws
// CommandError for another name.
std::vector<std::string> LayoutLines(const std::string& name);

}  // namespace pointalk::target
