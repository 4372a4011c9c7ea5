#include "reader/window_title.h"

#include <algorithm>

#include "reader/messages.h"
#include "text/text_rules.h"

namespace pointalk {

Text WindowTitle::GetWindowTitle(WindowHandle window) {
  const std::int32_t announced = messages_.Send(window, kWmGetTextLength, 0, 0).value_or(0);
  if (announced < 1) return {};
  const std::int32_t length = std::min(announced, kMostFetched);
  Text title = messages_.WindowText(window, length + 1).value_or(Text());
  if (IsBlank(title)) title = windows_.CaptionOf(window, length + 1);
  return title;
}

}  // namespace pointalk
