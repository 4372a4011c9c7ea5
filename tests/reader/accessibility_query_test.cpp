// What a query leaves of the object that was described before.
#include "reader/accessibility_query.h"

#include <gtest/gtest.h>

#include "tests/sim/simulated.h"

namespace pointalk {
namespace {

TEST(AccessibilityQuery, EmptiesTheSpareTextOverEditableTextOnly) {
  sim::Simulated simulated(R"({"objects": [
      {"rect": [0, 0, 100, 100], "role": "push button"}, {"rect": [0, 200, 100, 300], "role": "editable text"}]})");
  ObjectDescription description;
  AccessibilityQuery query(simulated.platform.accessibility, description);
  description.mSpareText = u"kept";
  query.QueryAccessibleObject({50, 50});
  EXPECT_EQ(description.mSpareText, u"kept");
  query.QueryAccessibleObject({50, 250});
  EXPECT_EQ(description.mSpareText, u"");
}

}  // namespace
}  // namespace pointalk
