// Messages to other programs' controls, each with a time limit.
#pragma once

#include "platform/control_messages.h"
#include "win32/answer_time.h"
#include "win32/guarded_buffer.h"
#include "win32/unresponsive_threads.h"

namespace pointalk::win32 {

class WinControlMessages final : public ControlMessages {
 public:
  WinControlMessages(UnresponsiveThreads& unresponsiveThreads, AnswerTime& answerTime)
      : unresponsiveThreads_(unresponsiveThreads), answerTime_(answerTime) {}

  std::optional<std::int32_t> Send(WindowHandle window, std::uint32_t message, std::uint64_t wParam,
                                   std::uint64_t lParam) override;
  std::optional<Text> WindowText(WindowHandle window, std::int32_t capacity) override;
  std::optional<Text> EditLine(WindowHandle window, std::int32_t line, std::int32_t capacity) override;
  std::optional<Text> ListBoxText(WindowHandle window, std::int32_t item, std::int32_t length) override;

 private:
  // The low 32 bits of the result, signed; no value when the message was not answered, nor when it asks for
  // the text of a password field. All messages go out here.
  std::optional<std::int32_t> Ask(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  std::optional<std::int32_t> AskOpenly(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  void CountTime(HWND window, ULONGLONG begin, ULONGLONG end);

  UnresponsiveThreads& unresponsiveThreads_;
  AnswerTime& answerTime_;
  ULONGLONG lastSlowAnswer_ = 0;  // by the system's clock, in milliseconds
  ULONGLONG takenSinceLeft_ = 0;  // milliseconds
  GuardedBuffer texts_;           // for texts of a length that the control decides
};

}  // namespace pointalk::win32
