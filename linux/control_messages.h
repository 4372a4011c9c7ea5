// Messages to controls, answered from what was found under the pointer. No program is asked here.
#pragma once

#include "linux/things.h"
#include "platform/control_messages.h"

namespace pointalk::linux {

class LinuxControlMessages final : public ControlMessages {
 public:
  explicit LinuxControlMessages(Things& things) : things_(things) {}

  // Of a text only the line under the pointer is known: its characters are counted from its beginning.
  std::optional<std::int32_t> Send(WindowHandle window, std::uint32_t message, std::uint64_t wParam,
                                   std::uint64_t lParam) override;

  // What a nameless button is for, or what it is; the title of a window.
  std::optional<Text> WindowText(WindowHandle window, std::int32_t capacity) override;
  std::optional<Text> EditLine(WindowHandle window, std::int32_t line, std::int32_t capacity) override;
  std::optional<Text> ListBoxText(WindowHandle, std::int32_t, std::int32_t) override { return std::nullopt; }

 private:
  // Null for what is no thing and for one whose program does not answer.
  const Thing* Answering(WindowHandle window);
  Text TextOf(const Thing& thing);

  Things& things_;
};

}  // namespace pointalk::linux
