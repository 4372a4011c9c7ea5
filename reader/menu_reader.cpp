#include "reader/menu_reader.h"

#include <algorithm>
#include <array>
#include <tuple>

#include "reader/remote_block.h"
#include "text/numbers.h"
#include "text/text_rules.h"

namespace pointalk {
namespace {

constexpr int kItemCharacters = 255;
constexpr std::size_t kItemBuffer = 256;  // bytes

constexpr TextView kMenuWord = u" menu";

}  // namespace

bool MenuReader::ReadMenu(const Spot& spot, bool /*isCommandBar*/) {
  if (ContainsInLowerCase(spot.texts.maccRole, u"menu")) {
    objectSpeech_.SpeakObjectText(Text(spot.texts.maccName).append(kMenuWord), spot);
    return true;
  }
  MenuHandle menu = seam_.menus.MenuOf(spot.window);
  if (menu == 0) return false;
  // A window with a menu bar is tested by its first drop-down, not by the bar.
  if (const MenuHandle dropDown = seam_.menus.SubMenuOf(menu, 0); seam_.menus.IsMenu(dropDown))
    menu = dropDown;
  if (menu <= 1) return false;
  const Point point{spot.point.x, spot.point.y == 0 ? 1 : spot.point.y};
  const std::int32_t item = seam_.menus.ItemAt(spot.window, menu, point);
  if (item < 0) return false;
  Text text = ItemTextByRemoteBuffer(spot.window, menu, item);
  if (IsBlank(text)) text = ItemText(menu, item);
  if (!IsBlank(spot.texts.maccText)) text = spot.texts.maccText;
  objectSpeech_.SpeakObjectText(Replaced(text, u"&", u"").append(kMenuWord), spot);
  return true;
}

// The call's buffer is the remote address written out in digits, so what comes back from the other process
// are the blanks that were sent there. It is made all the same.
Text MenuReader::ItemTextByRemoteBuffer(WindowHandle window, MenuHandle menu, std::int32_t item) {
  std::array<std::byte, kItemBuffer> local{};
  std::fill_n(local.begin(), kItemCharacters, std::byte{' '});
  RemoteBlock remote(seam_.memory, seam_.windows.ProcessOf(window).value_or(0), kItemBuffer);
  std::ignore = remote.Write(local);  // without a block the blanks stay where they are
  Text digits = WholeNumberText(static_cast<std::int64_t>(remote.Address()));
  const std::int32_t count = seam_.menus.ItemText(menu, item, digits, kItemCharacters);
  std::ignore = remote.Read(local);
  Text text;
  for (const std::byte byte : local) {
    if (byte == std::byte{0}) break;
    text.push_back(static_cast<char16_t>(byte));
  }
  return text.substr(0, static_cast<std::size_t>(std::max(count, 0)));
}

Text MenuReader::ItemText(MenuHandle menu, std::int32_t item) {
  Text buffer(kItemCharacters, u' ');
  const std::int32_t count = seam_.menus.ItemText(menu, item, buffer, kItemCharacters);
  return buffer.substr(0, static_cast<std::size_t>(std::max(count, 0)));
}

}  // namespace pointalk
