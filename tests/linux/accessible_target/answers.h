// What is answered on the bus of accessible objects.
#pragma once

#include <systemd/sd-bus.h>

#include "tests/linux/accessible_target/objects.h"

namespace pointalk::target {

// A connection to that bus on which the objects are told of, as a program of a toolkit of that name, which
// may be followed by its version; null where there is none.
sd_bus* TellOf(Objects& objects, const std::string& toolkit);

// Tells everybody on it that an object has the focus now.
void TellFocus(sd_bus* bus, const std::string& id);

}  // namespace pointalk::target
