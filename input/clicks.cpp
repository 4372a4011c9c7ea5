#include "input/clicks.h"

#include <cmath>

namespace pointalk {
namespace {

constexpr double kClickSettles = 0.2;  // seconds in which a click may still become a double click

}  // namespace

void Clicks::Take(std::int32_t message) {
  if (message == lastMessage_) return;
  lastMessage_ = message;
  switch (message) {
    case 513:
      mButtonDown = true;
      mPendingEventText = u"Click";
      return;
    case 514: mButtonDown = false; return;
    case 515: mPendingEventText = u"DoubleClick"; return;
    case 516: mPendingEventText = u"Right Click"; return;
    case 518: mPendingEventText = u"Right DoubleClick"; return;
    case 519: mPendingEventText = u"Middle Click"; return;
    case 521: mPendingEventText = u"Middle DoubleClick"; return;
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
