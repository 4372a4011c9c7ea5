// How the parts of a script are read. All throw ScriptError.
#pragma once

#include <set>
#include <vector>

#include "sim/script.h"
#include "sim/script_node.h"

namespace pointalk::sim {

Rectangle ReadRectangle(const ScriptNode& node);
Point ReadPoint(const ScriptNode& node);

MachineSetup ReadMachine(const ScriptNode& node);
std::vector<WindowFields> ReadWindows(const ScriptNode& node);
WindowFields ReadWindowFields(const ScriptNode& node);
std::vector<AccessibleObject> ReadObjects(const ScriptNode& node);

// The windows are those that the steps may change.
std::vector<Step> ReadSteps(const ScriptNode& node, const std::set<WindowHandle>& windows);

}  // namespace pointalk::sim
