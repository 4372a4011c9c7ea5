// The table of messages.
#include "app/click_names.h"

namespace pointalk {

void ClickNames::Note(std::int32_t message) {
  if (message == lastMessage) return;
  lastMessage = message;
  switch (message) {
    case 513:
      input.mButtonDown = true;
      input.mPendingEventText = u"Click";
      return;
    case 514: input.mButtonDown = false; return;
    case 515: input.mPendingEventText = u"DoubleClick"; return;
    case 516: input.mPendingEventText = u"Right Click"; return;
    case 518: input.mPendingEventText = u"Right DoubleClick"; return;
    case 519: input.mPendingEventText = u"Middle Click"; return;
    case 521: input.mPendingEventText = u"Middle DoubleClick"; return;
    default: return;
  }
}

}  // namespace pointalk
