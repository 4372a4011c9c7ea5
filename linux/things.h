// The things under the pointer, each with a handle, so that the seam can ask about them one question at a
// time.
#pragma once

#include <map>
#include <optional>
#include <string>

#include "linux/accessibility_switch.h"
#include "linux/found_object.h"
#include "linux/object_worker.h"
#include "linux/own_objects.h"
#include "linux/x_windows.h"
#include "platform/accessibility.h"
#include "platform/types.h"
#include "text/text.h"

namespace pointalk::linux {

struct Thing {
  WindowHandle handle = 0;
  WindowHandle parent = 0;  // 0 for the top one
  WindowHandle frame = 0;   // the window of the X server that it is in
  XWindowId window = 0;     // the same by the server's number
  ProcessId process = 0;
  Text className;
  AccessibleFacts facts;
  bool hasFacts = false;
  bool isButton = false;
  bool isPassword = false;
  bool isPopUp = false;  // a menu or list that belongs to another window
  Point origin;          // on the screen
  Point pointer;         // seen from there, when the thing was found
  std::optional<LineHit> line;
};

class Things {
 public:
  explicit Things(XDisplay& display) : display_(display), windows_(display) {}

  // What lies under a point now. Asks its program, a quarter of a second at most.
  const Thing& At(Point screen);

  // The same without asking again, where that point was the last one asked about.
  const Thing& Again(Point screen);

  // A thing that was found lately; null for any other handle.
  const Thing* Find(WindowHandle handle) const;

  // The title that the X server keeps for a thing's window.
  Text TitleOf(const Thing& thing);

  bool IsSilent(ProcessId process) { return worker_.IsSilent(process); }

  MissingBus TakeMissingBus() { return worker_.TakeMissingBus(); }

  // At the end of the program.
  void End() { worker_.End(); }

 private:
  Thing OfDesktop();
  Thing OfTitleBar(const XWindowSpot& spot);
  Thing OfWindow(const XWindowSpot& spot);
  Thing OfObject(const XWindowSpot& spot, FoundObject found);
  Thing Look(Point screen);
  WindowHandle HandleOf(const BusObject& object);
  const Thing& Keep(Thing thing);

  XDisplay& display_;
  XWindows windows_;
  ObjectWorker worker_;
  std::map<BusObject, WindowHandle> handles_;
  std::map<WindowHandle, Thing> things_;
  WindowHandle lastHandle_ = 0;
  std::optional<Point> lastPoint_;  // until it is asked about again
  WindowHandle lastThing_ = 0;
};

}  // namespace pointalk::linux
