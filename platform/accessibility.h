// Seam: the accessible object at a point of the screen.
#pragma once

#include <cstdint>
#include <optional>

#include "platform/types.h"
#include "text/text.h"

namespace pointalk {

// What an accessible object tells of itself; a property that could not be read is missing. Missing, too, are
// the value of a protected object and of any object of a password field, and a name that is the text of a
// password field. The label of such a field is told.
struct AccessibleFacts {
  std::optional<Text> name;
  std::optional<std::int32_t> role;  // missing also when the object gives a role that is not a number
  std::optional<Text> description;   // a very long one may have been cut
  std::optional<Text> value;
};

class Accessibility {
 public:
  virtual ~Accessibility() = default;

  // Asks the object at the pointer's place on the screen, with a time limit of 250 ms over all; a slow one is
  // abandoned sooner when the pointer leaves its program. No value when there is no object, it failed, or no
  // property came in time; a program that ran over the limit is not asked again until it shows that it
  // answers.
  virtual std::optional<AccessibleFacts> ObjectAt(Point screen) = 0;

  // True while an earlier question about this window has timed out and not yet returned.
  virtual bool QueryPending(WindowHandle window) = 0;

  // The platform's text for a role number, as it stands in a buffer of capacity characters: a text as long as
  // the buffer may have been cut. Empty when there is none.
  virtual Text RoleText(std::int32_t role, int capacity) = 0;
};

}  // namespace pointalk
