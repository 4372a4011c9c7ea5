// How long other programs take to answer what is asked for one description.
#pragma once

#include <windows.h>

namespace pointalk::win32 {

// Each question has its own limit; this is the one over all of them. A rich edit that takes 60 ms over each
// of the some forty questions of a description is still read. Times are by the system's clock, in
// milliseconds.
class AnswerTime {
 public:
  void BeginDescription() { taken_ = 0; }

  // A question was asked and answered, or given up.
  void Add(ULONGLONG begin, ULONGLONG end) {
    if (begin > last_ + kPause) taken_ = 0;
    taken_ += end - begin;
    last_ = end;
  }

  // Nobody is asked any more for this description.
  bool IsOver(ULONGLONG now) const { return taken_ >= kMost && now <= last_ + kPause; }

 private:
  static constexpr ULONGLONG kMost = 5000;
  static constexpr ULONGLONG kPause = 100;  // without a question, after which the next is for something else

  ULONGLONG taken_ = 0;
  ULONGLONG last_ = 0;  // the end of the last question
};

}  // namespace pointalk::win32
