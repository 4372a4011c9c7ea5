// The desktop's switch for accessibility. Some programs look at it when they start and tell of no object
// where it is off.
#pragma once

#include <string>

namespace pointalk::linux {

// Belongs to one thread, which may have to wait for the desktop for some seconds.
class AccessibilitySwitch {
 public:
  void TurnOn();

  // As it was before it was turned on; on where a screen reader needs it meanwhile.
  void PutBack();

  // The address of the bus on which programs tell of their objects; empty where there is none.
  std::string BusAddress();

  // The desktop has no such bus: the package that brings it is not installed.
  bool IsMissing() const { return isMissing_; }

 private:
  bool wasOff_ = false;
  bool isMissing_ = false;
};

}  // namespace pointalk::linux
