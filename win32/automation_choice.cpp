#include "win32/automation_choice.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "text/text_rules.h"

namespace pointalk::win32 {
namespace {

constexpr TextView kHosts[] = {
    u"Microsoft.UI.Content.DesktopChildSiteBridge",
    u"Windows.UI.Composition.DesktopWindowContentBridge",
    u"Windows.UI.Input.InputSite.WindowClass",
    u"XamlExplorerHostIslandWindow",
};
// What their accessible objects are called, whatever is drawn in them.
constexpr TextView kHostName = u"DesktopWindowXamlSource";

bool IsThere(const std::optional<Text>& text) { return text && !IsBlank(*text); }

void Replace(std::optional<Text>& text, std::optional<Text>& by) {
  if (IsThere(by)) text = std::move(by);
}

}  // namespace

bool WantsAutomation(const std::optional<AccessibleFacts>& said, TextView className) {
  if (!said) return true;
  if (!IsThere(said->name) && !IsThere(said->value)) return true;
  if (said->name == kHostName) return true;
  return std::find(std::begin(kHosts), std::end(kHosts), className) != std::end(kHosts);
}

AccessibleFacts Joined(std::optional<AccessibleFacts> said, AutomationAnswer more) {
  AccessibleFacts facts = std::move(said).value_or(AccessibleFacts());
  Replace(facts.name, more.facts.name);
  Replace(facts.description, more.facts.description);
  Replace(facts.value, more.facts.value);
  if (more.facts.role.value_or(0) != 0) facts.role = more.facts.role;
  if (more.isPassword) facts.value.reset();
  return facts;
}

}  // namespace pointalk::win32
