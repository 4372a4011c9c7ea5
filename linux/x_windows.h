// Which program's window lies under a point. No program is asked, only the X server.
#pragma once

#include <string>

#include "linux/x_display.h"

namespace pointalk::linux {

struct XWindowSpot {
  enum class Kind {
    kDesktop,   // no window, or one that nobody owns
    kTitleBar,  // what the window manager puts around a window
    kWindow,
    kPopUp,  // a menu or the list of a combo box: it belongs to a window and is none itself
  };

  Kind kind = Kind::kDesktop;
  XWindowId window = 0;
  ProcessId process = 0;  // 0 where it is not told
  XDisplay::Place place;
};

class XWindows {
 public:
  explicit XWindows(XDisplay& display) : display_(display) {}

  XWindowSpot At(Point screen);

 private:
  XWindowId TopAt(Point screen);
  bool IsLookedThrough(XWindowId window);
  bool IsOfProgram(XWindowId window);
  bool IsClient(XWindowId window) { return display_.Has(window, "WM_STATE"); }
  XWindowId ClientWithin(XWindowId frame);
  XWindowSpot Spot(XWindowSpot::Kind kind, XWindowId window);

  XDisplay& display_;
};

}  // namespace pointalk::linux
