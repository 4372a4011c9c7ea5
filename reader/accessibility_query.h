// Asks what accessible object lies under the pointer, and chooses what is to be said of it.
#pragma once

#include "platform/accessibility.h"
#include "platform/types.h"
#include "reader/spot.h"

namespace pointalk {

class AccessibilityQuery {
 public:
  explicit AccessibilityQuery(Accessibility& accessibility) : accessibility_(accessibility) {}

  // The texts of the object at a place in a window of that class.
  AccessibleTexts QueryAccessibleObject(Point screen, TextView className);

 private:
  Accessibility& accessibility_;
};

}  // namespace pointalk
