// Finds the double clicks among the mouse's messages: whoever listens to the whole desktop is told of single
// presses only, since double clicks are made later, in the window that is clicked.
#pragma once

#include <cstdint>

#include "platform/types.h"

namespace pointalk {

class DoubleClicks {
 public:
  // The user's settings: two presses make a double click within this time, the second in a rectangle of this
  // size around the first.
  struct Limits {
    std::uint32_t milliseconds = 0;
    std::int32_t width = 0;   // pixels
    std::int32_t height = 0;  // pixels
  };

  // The number to report for a message of a button: that of the double click for the second press of one,
  // else the message's own. The time is in milliseconds and may wrap.
  std::int32_t Report(std::int32_t message, Point place, std::uint32_t time, const Limits& limits);

 private:
  std::int32_t lastPress_ = 0;  // the message of the press that may be the first of two; 0 for none
  Point lastPlace_;
  std::uint32_t lastTime_ = 0;
};

}  // namespace pointalk
