// A connection to the X server, and the questions about windows that the server answers by itself.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/types.h"

struct _XDisplay;  // Xlib's, whose header names things as other libraries do

namespace pointalk::linux {

using XWindowId = unsigned long;  // as Xlib has them
using XAtom = unsigned long;

// Windows of other programs may be gone by the time that they are asked about, and so may the server: from
// now on such an error is an answer and does not end the program.
void TakeXErrorsAsAnswers();

class XDisplay {
 public:
  // Belongs to the thread that made it. Without a server it is closed, and every question fails.
  XDisplay();
  XDisplay(const XDisplay&) = delete;
  XDisplay& operator=(const XDisplay&) = delete;

  // False also once the connection is lost, which does not end the program by itself.
  bool IsOpen() const { return display_ != nullptr && !isLost_; }
  _XDisplay* Connection() const { return display_.get(); }
  XWindowId Root() const { return root_; }

  // The pointer's place and the mask of the keys and buttons that are down; no value where the server does
  // not tell.
  struct Pointer {
    Point place;
    unsigned mask = 0;
  };
  std::optional<Pointer> AskPointer();

  // The child of a window under a point of the screen, 0 where there is none.
  XWindowId ChildAt(XWindowId window, Point screen);
  std::vector<XWindowId> ChildrenOf(XWindowId window);  // from the lowest to the topmost

  struct Place {
    Point origin;  // on the screen
    std::int32_t width = 0;
    std::int32_t height = 0;
    bool isShown = false;
    bool overridesRedirect = false;
    bool isInputOnly = false;  // nothing is seen of it

    bool Holds(Point screen) const;
  };
  std::optional<Place> PlaceOf(XWindowId window);

  bool Has(XWindowId window, const char* property);
  std::optional<std::uint32_t> Number(XWindowId window, const char* property);
  std::vector<std::string> AtomNames(XWindowId window, const char* property);
  // In UTF-8; empty where there is none.
  std::string TitleOf(XWindowId window);

 private:
  struct Property {
    XAtom type = 0;
    std::vector<unsigned long> numbers;  // of 32 bits
    std::string bytes;
  };

  struct Closed {
    void operator()(_XDisplay* display) const;
  };

  static void NoteLoss(_XDisplay* display, void* self);

  XAtom AtomOf(const char* name);
  Property Read(XWindowId window, const char* name, long units);

  std::unique_ptr<_XDisplay, Closed> display_;
  XWindowId root_ = 0;
  bool isLost_ = false;
  std::vector<std::pair<std::string, XAtom>> atoms_;  // asked for so far
};

}  // namespace pointalk::linux
