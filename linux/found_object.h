// What was found under a point, as values.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "linux/bus.h"
#include "linux/x_windows.h"
#include "platform/types.h"
#include "text/text.h"

namespace pointalk::linux {

// A line of a text, and the place in it that lies under the point.
struct LineHit {
  Text line;
  std::int32_t position = 0;  // characters from the line's beginning
  std::int32_t number = 0;    // tells lines of one text from each other
};

struct FoundObject {
  BusObject object;
  std::uint32_t role = 0;  // its number in AT-SPI
  bool isFrame = false;    // it is the whole window
  bool readByLine = false;
  Text name;
  Text description;
  std::optional<Text> value;
  Point origin;  // of the object, in pixels of the screen
  std::optional<LineHit> line;
  std::vector<BusObject> above;  // what holds it, as far as that was seen, the frame first
};

struct ObjectQuestion {
  Point point;  // pixels of the screen
  XWindowSpot spot;
  std::string title;  // of the window, in UTF-8
};

}  // namespace pointalk::linux
