// The controls of the simulated windows as they answer messages.
#pragma once

#include "platform/control_messages.h"
#include "sim/desktop.h"
#include "sim/process_memory.h"

namespace pointalk::sim {

class SimControlMessages final : public ControlMessages {
 public:
  SimControlMessages(const Desktop& desktop, ProcessMemory& memory) : desktop_(desktop), memory_(memory) {}

  std::optional<std::int32_t> Send(WindowHandle handle, std::uint32_t message, std::uint64_t wParam,
                                   std::uint64_t lParam) override;
  std::optional<Text> WindowText(WindowHandle handle, std::int32_t capacity) override;
  std::optional<Text> EditLine(WindowHandle handle, std::int32_t line, std::int32_t capacity) override;
  std::optional<Text> ListBoxText(WindowHandle handle, std::int32_t item, std::int32_t length) override;

 private:
  // The window when it answers messages, else null.
  const Window* Answering(WindowHandle handle) const;

  // The same, null also for a password field.
  const Window* TellingItsText(WindowHandle handle) const;

  std::int32_t AskListBox(const ListBox& box, std::uint32_t message, std::uint32_t wParam,
                          std::uint32_t lParam);
  std::int32_t AskEdit(const Edit& edit, std::uint32_t message, std::uint32_t wParam);
  std::int32_t HitTest(const ListView& view, ProcessId process, RemoteAddress record);
  std::int32_t FetchItem(const ListView& view, ProcessId process, RemoteAddress record);
  std::int32_t CharacterFromRemotePoint(const Edit& edit, ProcessId process, RemoteAddress point);

  const Desktop& desktop_;
  ProcessMemory& memory_;
};

}  // namespace pointalk::sim
