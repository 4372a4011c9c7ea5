#include "sim/control_messages.h"

#include <algorithm>

#include "sim/code_page.h"
#include "sim/window_tree.h"

namespace pointalk::sim {
namespace {

constexpr std::uint32_t kGetTextLength = 0x000E;
constexpr std::uint32_t kEditLineLength = 0x00C1;
constexpr std::uint32_t kEditLineFromCharacter = 0x00C9;
constexpr std::uint32_t kEditCharacterFromPoint = 0x00D7;
constexpr std::uint32_t kListBoxGetTextLength = 0x018A;
constexpr std::uint32_t kListBoxGetTopIndex = 0x018E;
constexpr std::uint32_t kListBoxItemFromPoint = 0x01A9;
constexpr std::uint32_t kListViewGetItem = 0x1005;
constexpr std::uint32_t kListViewSubItemHitTest = 0x1039;

// Offsets in the hit-test record of a 32-bit process.
constexpr RemoteAddress kHitX = 0;
constexpr RemoteAddress kHitY = 4;
constexpr RemoteAddress kHitFlags = 8;
constexpr RemoteAddress kHitItem = 12;
constexpr RemoteAddress kHitSubItem = 16;

// Offsets in the item record of a 32-bit process.
constexpr RemoteAddress kItemMask = 0;
constexpr RemoteAddress kItemIndex = 4;
constexpr RemoteAddress kItemText = 20;
constexpr RemoteAddress kItemTextCapacity = 24;
constexpr std::uint32_t kItemMaskText = 1;

std::int32_t Signed(std::uint32_t number) { return static_cast<std::int32_t>(number); }

// x in the low half of a parameter, y in the high one, both signed.
Point UnpackPoint(std::uint32_t packed) {
  return {static_cast<std::int16_t>(packed & 0xFFFF), static_cast<std::int16_t>(packed >> 16)};
}

std::int32_t PackedPlace(const std::optional<Edit::Place>& place) {
  if (!place) return -1;
  return Signed(static_cast<std::uint32_t>(place->line) << 16 |
                (static_cast<std::uint32_t>(place->character) & 0xFFFF));
}

}  // namespace

const Window* SimControlMessages::Answering(WindowHandle handle) const {
  const Window* const window = desktop_.Find(handle);
  return window == nullptr || window->hung ? nullptr : window;
}

const Window* SimControlMessages::TellingItsText(WindowHandle handle) const {
  const Window* const window = Answering(handle);
  return window == nullptr || window->HoldsPassword() ? nullptr : window;
}

std::optional<std::int32_t> SimControlMessages::Send(WindowHandle handle, std::uint32_t message,
                                                     std::uint64_t wParam, std::uint64_t lParam) {
  const Window* const window = message == kGetTextLength ? TellingItsText(handle) : Answering(handle);
  if (window == nullptr) return std::nullopt;
  const auto wParam32 = static_cast<std::uint32_t>(wParam);
  const auto lParam32 = static_cast<std::uint32_t>(lParam);
  switch (message) {
    case kGetTextLength: return static_cast<std::int32_t>(window->title.size());
    case kListBoxItemFromPoint:
    case kListBoxGetTopIndex:
    case kListBoxGetTextLength:
      return window->listBox ? AskListBox(*window->listBox, message, wParam32, lParam32) : 0;
    case kListViewSubItemHitTest:
      return window->listView ? HitTest(*window->listView, window->process, lParam) : 0;
    case kListViewGetItem:
      return window->listView ? FetchItem(*window->listView, window->process, lParam) : 0;
    case kEditCharacterFromPoint:
      if (window->edit) return PackedPlace(window->edit->CharacterFromPoint(UnpackPoint(lParam32)));
      return window->richEdit ? CharacterFromRemotePoint(*window->richEdit, window->process, lParam) : 0;
    case kEditLineLength:
    case kEditLineFromCharacter:
      if (window->edit) return AskEdit(*window->edit, message, wParam32);
      return window->richEdit ? AskEdit(*window->richEdit, message, wParam32) : 0;
    default: return 0;
  }
}

std::int32_t SimControlMessages::AskListBox(const ListBox& box, std::uint32_t message, std::uint32_t wParam,
                                            std::uint32_t lParam) {
  if (message == kListBoxItemFromPoint) return box.ItemFromPoint(UnpackPoint(lParam));
  if (message == kListBoxGetTopIndex) return box.top;
  const Text* const item = box.Item(Signed(wParam));
  return item == nullptr ? -1 : static_cast<std::int32_t>(item->size());
}

std::int32_t SimControlMessages::AskEdit(const Edit& edit, std::uint32_t message, std::uint32_t wParam) {
  return message == kEditLineLength ? edit.LineLength(Signed(wParam))
                                    : edit.LineFromCharacter(Signed(wParam));
}

std::int32_t SimControlMessages::HitTest(const ListView& view, ProcessId process, RemoteAddress record) {
  const auto x = memory_.ReadNumber(process, record + kHitX);
  const auto y = memory_.ReadNumber(process, record + kHitY);
  if (!x || !y) return 0;
  const ListView::Hit hit = view.HitTest({Signed(*x), Signed(*y)});
  const bool written =
      memory_.WriteNumber(process, record + kHitFlags, hit.flags) &&
      memory_.WriteNumber(process, record + kHitItem, static_cast<std::uint32_t>(hit.item)) &&
      memory_.WriteNumber(process, record + kHitSubItem, 0);
  return written ? hit.item : 0;
}

std::int32_t SimControlMessages::FetchItem(const ListView& view, ProcessId process, RemoteAddress record) {
  const auto mask = memory_.ReadNumber(process, record + kItemMask);
  const auto index = memory_.ReadNumber(process, record + kItemIndex);
  const auto address = memory_.ReadNumber(process, record + kItemText);
  const auto capacity = memory_.ReadNumber(process, record + kItemTextCapacity);
  if (!mask || !index || !address || !capacity || *index >= view.items.size()) return 0;
  if ((*mask & kItemMaskText) == 0) return 1;
  std::vector<std::byte> label = SimAnsi().ToBytes(view.items[*index].text);
  label.push_back(std::byte{0});
  label.resize(std::min<std::size_t>(label.size(), *capacity));
  return memory_.Write(process, *address, label) ? 1 : 0;
}

std::int32_t SimControlMessages::CharacterFromRemotePoint(const Edit& edit, ProcessId process,
                                                          RemoteAddress point) {
  const auto x = memory_.ReadNumber(process, point);
  const auto y = memory_.ReadNumber(process, point + 4);
  if (!x || !y) return 0;
  const auto place = edit.CharacterFromPoint({Signed(*x), Signed(*y)});
  return place ? place->character : -1;
}

std::optional<Text> SimControlMessages::WindowText(WindowHandle handle, std::int32_t capacity) {
  const Window* const window = TellingItsText(handle);
  if (window == nullptr) return std::nullopt;
  return FittingBuffer(window->title, capacity);
}

std::optional<Text> SimControlMessages::EditLine(WindowHandle handle, std::int32_t line,
                                                 std::int32_t capacity) {
  const Window* const window = TellingItsText(handle);
  if (window == nullptr) return std::nullopt;
  const auto& edit = window->edit ? window->edit : window->richEdit;
  if (!edit || capacity <= 0) return Text();
  return Text(edit->Line(line).substr(0, static_cast<std::size_t>(capacity)));
}

std::optional<Text> SimControlMessages::ListBoxText(WindowHandle handle, std::int32_t item,
                                                    std::int32_t length) {
  const Window* const window = Answering(handle);
  if (window == nullptr || length <= 0) return std::nullopt;
  const Text* const text = window->listBox ? window->listBox->Item(item) : nullptr;
  Text given = text == nullptr ? Text() : *text;
  given.resize(static_cast<std::size_t>(length));
  return given;
}

}  // namespace pointalk::sim
