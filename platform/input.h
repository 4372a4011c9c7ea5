// Seam: where the pointer is, which keys are down, how large the screen is.
#pragma once

#include <cstdint>
#include <optional>

#include "platform/types.h"

namespace pointalk {

// The platform's numbers of the keys and mouse buttons that are asked for. The left button is the one that
// the user's settings make it: the right one of a left-handed mouse.
inline constexpr int kKeyLeftButton = 1;
inline constexpr int kKeyShift = 16;
inline constexpr int kKeyControl = 17;
inline constexpr int kKeyAlt = 18;

// The screen's size as the platform's toolkit gives it: in twips (1/1440 inch), with the twips of one pixel.
struct ScreenSize {
  double widthTwips = 0;
  double heightTwips = 0;
  double twipsPerPixelX = 0;
  double twipsPerPixelY = 0;
};

class Input {
 public:
  virtual ~Input() = default;

  // Pointer position in screen pixels; no value when the platform does not tell.
  virtual std::optional<Point> PointerPosition() = 0;

  // True when the key is down, or went down and up again since it was last asked for. False on failure.
  virtual bool KeyDown(int virtualKey) = 0;

  // No value when the platform does not tell.
  virtual std::optional<ScreenSize> Screen() = 0;

  // Mouse-button messages are reported to the form from now on (or no longer). The reports come as events of
  // the form's own thread and never delay the mouse. False when the platform refuses.
  [[nodiscard]] virtual bool ReportMouse(bool on) = 0;
};

}  // namespace pointalk
