// Turns the mouse's messages into names of clicks.
#pragma once

#include <cstdint>

#include "app/input_state.h"

namespace pointalk {

class ClickNames {
 public:
  explicit ClickNames(InputState& theInput) : input(theInput) {}

  // One message of the mouse, by the platform's number. The same number twice in a row counts once.
  void Note(std::int32_t message);

 private:
  InputState& input;
  std::int32_t lastMessage = 0;
};

}  // namespace pointalk
