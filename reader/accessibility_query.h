// Asks what accessible object lies under the pointer, and chooses what is to be said of it.
#pragma once

#include "platform/accessibility.h"
#include "platform/types.h"
#include "reader/object_description.h"

namespace pointalk {

class AccessibilityQuery {
 public:
  AccessibilityQuery(Accessibility& theAccessibility, ObjectDescription& theDescription)
      : accessibility(theAccessibility), description(theDescription) {}

  // Leaves everything in the description; what could not be read is empty there.
  void QueryAccessibleObject(Point screen);

 private:
  Accessibility& accessibility;
  ObjectDescription& description;

  void ChooseText();
};

}  // namespace pointalk
