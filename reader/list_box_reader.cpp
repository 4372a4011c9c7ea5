#include "reader/list_box_reader.h"

#include "reader/messages.h"
#include "text/text_rules.h"

namespace pointalk {

void ListBoxReader::ReadListBox(const Spot& spot) {
  Point client = windows_.ToClient(spot.window, spot.point).value_or(spot.point);
  if (client.y == 0) client.y = 1;
  const std::int32_t hit =
      messages_.Send(spot.window, kLbItemFromPoint, 0, PackedPoint(client.x, client.y)).value_or(0);
  const bool outside = hit > 0xFFFF;
  const std::int32_t item = hit & 0xFFFF;
  PlayScrolling(spot.window);
  if (outside) return eventSounds_.PlayEarcon(u"OffVisibleArea");
  if (item == lastItemIndex_) return;
  const Text text = ItemText(spot.window, item);
  eventSounds_.PlayEarcon(u"ListBoxHit");
  lastItemIndex_ = item;
  // A list that draws its items itself gives its own data, not a text.
  if (!Contains(text, TextView(u"\0", 1))) objectSpeech_.SpeakObjectText(text, spot);
}

void ListBoxReader::PlayScrolling(WindowHandle window) {
  const std::int32_t top = messages_.Send(window, kLbGetTopIndex, 0, 0).value_or(0);
  if (lastTopIndex_ > top) eventSounds_.PlayEarcon(u"ScrollUp");
  if (lastTopIndex_ < top) eventSounds_.PlayEarcon(u"ScrollDown");
  lastTopIndex_ = top;
}

Text ListBoxReader::ItemText(WindowHandle window, std::int32_t item) {
  const std::int32_t length =
      messages_.Send(window, kLbGetTextLen, static_cast<std::uint64_t>(item), 0).value_or(0);
  if (length < 1 || length > kMostFetched) return {};
  return messages_.ListBoxText(window, item, length).value_or(Text());
}

}  // namespace pointalk
