// The clicks that the mouse's messages name, and the one that waits to be spoken.
#pragma once

#include <cstdint>

#include "text/text.h"

namespace pointalk {

class Clicks {
 public:
  // One message of the mouse, by the platform's number. The same number twice in a row counts once.
  void Take(std::int32_t message);

  // The name of the click that waits, the last one made; empty when none does.
  const Text& Pending() const { return mPendingEventText; }

  // The click that waits is not to be spoken any more.
  void Forget() { mPendingEventText.clear(); }

  // True once the click that waits can no longer become a double click. The first call, and the first after
  // a click was spoken, only start the clock. The time now is in seconds since midnight.
  bool HasSettled(double now);

  // The click has been spoken.
  void ForgetSettled();

  // The left button, by the messages.
  bool ButtonDown() const { return mButtonDown; }

 private:
  bool mButtonDown = false;
  Text mPendingEventText;
  Text mLastClickText;        // the click for which the clock was set; stays when a click is only forgotten
  double mLastClickTime = 0;  // and when it was set, in seconds since midnight
  std::int32_t lastMessage_ = 0;
};

}  // namespace pointalk
