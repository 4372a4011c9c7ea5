// What a query makes of an object's properties.
#include "reader/accessibility_query.h"

#include <gtest/gtest.h>

#include "tests/sim/simulated.h"

namespace pointalk {
namespace {

class AccessibilityQueryTest : public ::testing::Test {
 protected:
  sim::Simulated simulated{R"({"objects": [
      {"rect": [0, 0, 100, 100], "role": "push button", "name": "OK", "value": "  ", "description": "Ends it"},
      {"rect": [0, 200, 100, 300], "role": "outline item", "name": "Documents", "value": "2"}]})"};
  AccessibilityQuery query{simulated.platform.accessibility};
};

TEST_F(AccessibilityQueryTest, ChoosesTheValueUnlessItIsBlank) {
  const AccessibleTexts button = query.QueryAccessibleObject({50, 50}, u"button");
  EXPECT_EQ(button.maccName, u"OK");
  EXPECT_EQ(button.maccRole, u"push button");
  EXPECT_EQ(button.maccValue, u"  ");
  EXPECT_EQ(button.maccDescription, u"Ends it");
  EXPECT_EQ(button.maccText, u"OK");
  EXPECT_EQ(query.QueryAccessibleObject({50, 250}, u"button").maccText, u"2");
}

TEST_F(AccessibilityQueryTest, ChoosesTheNameInATree) {
  EXPECT_EQ(query.QueryAccessibleObject({50, 250}, u"SysTreeView32").maccText, u"Documents");
}

TEST_F(AccessibilityQueryTest, FindsNoTextsWhereThereIsNoObject) {
  const AccessibleTexts none = query.QueryAccessibleObject({500, 500}, u"button");
  EXPECT_EQ(none.maccName + none.maccValue + none.maccDescription + none.maccText, u"");
}

}  // namespace
}  // namespace pointalk
