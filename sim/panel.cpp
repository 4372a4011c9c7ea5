#include "sim/panel.h"

#include "app/panel_table.h"

namespace pointalk::sim {

SimPanel::SimPanel(Machine& machine) : machine_(machine) {
  for (const MenuEntry& entry : PanelMenu()) checked_.emplace(entry.name, entry.checkedAtStart);
}

void SimPanel::Minimise() {
  if (!minimised_) machine_.Record("window minimised");
  minimised_ = true;
}

bool SimPanel::MenuChecked(TextView name) {
  const auto entry = checked_.find(name);
  return entry != checked_.end() && entry->second;
}

void SimPanel::SetMenuChecked(TextView name, bool checked) {
  const auto entry = checked_.find(name);
  if (entry == checked_.end() || entry->second == checked) return;
  entry->second = checked;
  machine_.Record("check", Bare{name}, checked ? "on" : "off");
}

}  // namespace pointalk::sim
