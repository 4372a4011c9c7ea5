#include "win32/foreground.h"

#include <windows.h>

namespace pointalk::win32 {

// An input of our own, here a mouse movement by no distance, makes us that program.
void ClaimForeground() {
  INPUT nothing{};
  nothing.type = INPUT_MOUSE;
  SendInput(1, &nothing, sizeof nothing);
}

}  // namespace pointalk::win32
