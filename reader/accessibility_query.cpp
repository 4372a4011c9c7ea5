// One question, four properties, one text.
#include "reader/accessibility_query.h"

#include <utility>

#include "text/text_rules.h"

namespace pointalk {
namespace {

constexpr int kRoleBuffer = 128;  // characters

}  // namespace

void AccessibilityQuery::QueryAccessibleObject(Point screen) {
  AccessibleFacts facts = accessibility.ObjectAt(screen).value_or(AccessibleFacts());
  description.maccName = std::move(facts.name).value_or(Text());
  Text role = accessibility.RoleText(facts.role.value_or(0), kRoleBuffer);
  if (role.size() >= kRoleBuffer) role.clear();  // without room for its end it cannot be told from the buffer
  description.maccRole = std::move(role);
  if (Contains(description.maccRole, u"ditable")) description.mSpareText.clear();
  description.maccDescription = std::move(facts.description).value_or(Text());
  description.maccValue = std::move(facts.value).value_or(Text());
  description.mTopWindowName.clear();
  ChooseText();
}

// A tree's values are levels, not texts.
void AccessibilityQuery::ChooseText() {
  if (ContainsInLowerCase(description.mOfficialClassName, u"treeview")) {
    description.maccText = description.maccName;
  } else if (!IsBlank(description.maccValue)) {
    description.maccText = description.maccValue;
  } else if (!IsBlank(description.maccName)) {
    description.maccText = description.maccName;
  } else {
    description.maccText.clear();
  }
}

}  // namespace pointalk
