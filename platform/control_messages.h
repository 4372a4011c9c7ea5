// Seam: messages to other programs' controls. Each has a time limit of 100 ms and fails at once for a program
// that is known to be unresponsive, and once all that is asked for one description has taken five seconds; a
// message that timed out or failed gives no part of an answer.
//
// A password field is not asked for its text: whichever message of a text field would give the text, a part
// of it or its length, the field counts as not having answered. Where its lines and characters stand it
// tells. A window that does not say whether it is a password field counts as one.
#pragma once

#include <cstdint>
#include <optional>

#include "platform/types.h"
#include "text/text.h"

namespace pointalk {

class ControlMessages {
 public:
  virtual ~ControlMessages() = default;

  // The result of a message that carries numbers or an address in the target's own memory: its low 32 bits,
  // signed. No value when it was not answered.
  virtual std::optional<std::int32_t> Send(WindowHandle window, std::uint32_t message, std::uint64_t wParam,
                                           std::uint64_t lParam) = 0;

  // The text that the window gives for itself (WM_GETTEXT), at most capacity - 1 characters, up to its first
  // NUL. No value when it was not answered.
  virtual std::optional<Text> WindowText(WindowHandle window, std::int32_t capacity) = 0;

  // One line of an edit control (EM_GETLINE): at most capacity characters (0 to 65,535), as many as the
  // control says it copied. No value when it was not answered or the count makes no sense.
  virtual std::optional<Text> EditLine(WindowHandle window, std::int32_t line, std::int32_t capacity) = 0;

  // One item of a list box (LB_GETTEXT), NULs within it kept: exactly length characters (1 to 65,536), those
  // that the control did not give being NULs. No value when it was not answered.
  virtual std::optional<Text> ListBoxText(WindowHandle window, std::int32_t item, std::int32_t length) = 0;
};

}  // namespace pointalk
