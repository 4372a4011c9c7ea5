#include "reader/accessibility_query.h"

#include <utility>

#include "text/text_rules.h"

namespace pointalk {
namespace {

constexpr int kRoleBuffer = 128;  // characters

// A tree's values are levels, not texts.
Text ChosenText(const AccessibleTexts& texts, TextView className) {
  if (ContainsInLowerCase(className, u"treeview")) return texts.maccName;
  if (!IsBlank(texts.maccValue)) return texts.maccValue;
  return IsBlank(texts.maccName) ? Text() : texts.maccName;
}

}  // namespace

AccessibleTexts AccessibilityQuery::QueryAccessibleObject(Point screen, TextView className) {
  AccessibleFacts facts = accessibility_.ObjectAt(screen).value_or(AccessibleFacts());
  AccessibleTexts texts;
  texts.maccName = std::move(facts.name).value_or(Text());
  texts.maccRole = accessibility_.RoleText(facts.role.value_or(0), kRoleBuffer);
  // A text as long as the buffer has lost its end, and counts as none.
  if (texts.maccRole.size() >= kRoleBuffer) texts.maccRole.clear();
  texts.maccDescription = std::move(facts.description).value_or(Text());
  texts.maccValue = std::move(facts.value).value_or(Text());
  texts.maccText = ChosenText(texts, className);
  return texts;
}

}  // namespace pointalk
