// Sentences about what is missing on the machine. They are shown without holding anything up.
#pragma once

#include "text/text.h"

namespace pointalk::linux {

class Notices {
 public:
  // In a window of its own that the user closes; nobody waits for that.
  void Show(TextView sentence);
};

}  // namespace pointalk::linux
