// Which item, whether the list scrolled, and what the item says.
#include "reader/list_box_reader.h"

#include "reader/messages.h"
#include "text/text_rules.h"

namespace pointalk {

bool ListBoxReader::ReadListBox(const Spot& spot) {
  Point client = windows.ToClient(spot.window, spot.pointer).value_or(spot.pointer);
  if (client.y == 0) client.y = 1;
  const std::int32_t hit =
      messages.Send(spot.window, kLbItemFromPoint, 0, PackedPoint(client.x, client.y)).value_or(0);
  const bool outside = hit > 0xFFFF;
  const std::int32_t item = hit & 0xFFFF;
  PlayScrolling(spot.window);
  if (outside) {
    sounds.PlayEarcon(u"OffVisibleArea");
    return false;
  }
  if (item == lastItemIndex) return false;
  const Text text = ItemText(spot.window, item);
  sounds.PlayEarcon(u"ListBoxHit");
  lastItemIndex = item;
  // A list that draws its items itself gives its own data, not a text.
  if (Contains(text, TextView(u"\0", 1))) return false;
  speech.SpeakObjectText(text);
  return true;
}

void ListBoxReader::PlayScrolling(WindowHandle window) {
  const std::int32_t top = messages.Send(window, kLbGetTopIndex, 0, 0).value_or(0);
  if (lastTopIndex > top) sounds.PlayEarcon(u"ScrollUp");
  if (lastTopIndex < top) sounds.PlayEarcon(u"ScrollDown");
  lastTopIndex = top;
}

Text ListBoxReader::ItemText(WindowHandle window, std::int32_t item) {
  const std::int32_t length =
      messages.Send(window, kLbGetTextLen, static_cast<std::uint64_t>(item), 0).value_or(0);
  if (length < 1 || length > kMostFetched) return {};
  return messages.ListBoxText(window, item, length).value_or(Text());
}

}  // namespace pointalk
