#include "input/clicks.h"

#include <cmath>

#include "input/mouse_messages.h"

namespace pointalk {
namespace {

constexpr double kClickSettles = 0.2;  // seconds in which a click may still become a double click

}  // namespace

void Clicks::Take(std::int32_t message) {
  if (message == lastMessage_) return;
  lastMessage_ = message;
  switch (message) {
    case kLeftPress:
      mButtonDown = true;
      mPendingEventText = u"Click";
      return;
    case kLeftRelease: mButtonDown = false; return;
    case kLeftDoubleClick: mPendingEventText = u"DoubleClick"; return;
    case kRightPress: mPendingEventText = u"Right Click"; return;
    case kRightDoubleClick: mPendingEventText = u"Right DoubleClick"; return;
    case kMiddlePress: mPendingEventText = u"Middle Click"; return;
    case kMiddleDoubleClick: mPendingEventText = u"Middle DoubleClick"; return;
    default: return;
  }
}

bool Clicks::HasSettled(double now) {
  if (mLastClickText.empty()) {
    mLastClickTime = now;
    mLastClickText = mPendingEventText;
    return false;
  }
  return std::fabs(now - mLastClickTime) > kClickSettles;
}

void Clicks::ForgetSettled() {
  mLastClickText.clear();
  mPendingEventText.clear();
}

}  // namespace pointalk
