// The desktop's switch for accessibility. Some programs look at it when they start and tell of no object
// where it is off.
#pragma once

#include <string>

namespace pointalk::linux {

// A bus that no program of the desktop offers.
enum class MissingBus { kNone, kSession, kObjects };

// Belongs to one thread, which may have to wait for the desktop for some seconds.
class AccessibilitySwitch {
 public:
  void TurnOn();

  // As it was before it was turned on; on where a screen reader needs it meanwhile.
  void PutBack();

  // The address of the bus on which programs tell of their objects; empty where there is none.
  std::string BusAddress();

  // What the last look for that address did not find because it is not installed. A session's bus that was
  // there before has only ended.
  MissingBus Missing() const { return missing_; }

 private:
  bool wasOff_ = false;
  bool hadSession_ = false;
  MissingBus missing_ = MissingBus::kNone;
};

}  // namespace pointalk::linux
