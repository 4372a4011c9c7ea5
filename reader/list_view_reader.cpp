#include "reader/list_view_reader.h"

#include <array>
#include <tuple>

#include "reader/messages.h"
#include "reader/remote_block.h"
#include "text/text_rules.h"

namespace pointalk {
namespace {

constexpr std::int32_t kLabelBytes = 255;
constexpr int kMostHolders = 33;  // rounds of the walk to the window that holds the list

// A control character at a label's end is dropped, one of them.
void DropControlAtEnd(Text& label) {
  if (!label.empty() && label.back() < 32) label.pop_back();
}

}  // namespace

void ListViewReader::ReadListView(const Spot& spot) {
  const ListViewHit hit = HitTest(spot);
  Text mListViewItemText = ListViewItemText(spot.window, hit.item, hit.subItem);
  DropControlAtEnd(mListViewItemText);
  if (spot.overDesktop) {
    SpeakOnDesktop(spot, mListViewItemText);
  } else {
    SpeakInList(spot, mListViewItemText);
  }
  PlayIconSounds(hit);
}

// Where the hit test fails, the record stays as it was sent, which means on item 0.
ListViewHit ListViewReader::HitTest(const Spot& spot) {
  ListViewHit hit;
  hit.client = seam_.windows.ToClient(spot.window, spot.point).value_or(spot.point);
  std::ignore =
      seam_.messages.Send(spot.window, kLvmGetItemCount, 0, 0);  // what follows does not depend on the count
  const ProcessId process = seam_.windows.ProcessOf(spot.window).value_or(0);
  HitTestRecord record(hit, seam_.memory.PointerBytes(process));
  RemoteBlock remote(seam_.memory, process, record.Bytes().size());
  if (remote.Write(record.Bytes()) && remote.Ask(seam_.messages, spot.window, kLvmSubItemHitTest)) {
    std::ignore = remote.Read(record.Bytes());
  }
  if (!mHitRecordFreeable) remote.Abandon();
  mHitRecordFreeable = true;
  return record.Hit();
}

Text ListViewReader::ListViewItemText(WindowHandle window, std::int32_t item, std::int32_t /*subItem*/) {
  if (item == -1) return {};
  const ProcessId process = seam_.windows.ProcessOf(window).value_or(0);
  std::array<std::byte, kLabelBytes> label{};
  label.fill(std::byte{' '});
  RemoteBlock text(seam_.memory, process, kLabelBytes);
  if (text.Address() != 0) {
    const int pointerBytes = seam_.memory.PointerBytes(process);
    ItemRecord record(item, text.Address(), kLabelBytes, pointerBytes);
    RemoteBlock remote(seam_.memory, process, record.Bytes().size());
    text.Lend(window);
    if (remote.Write(record.Bytes()) && !remote.Ask(seam_.messages, window, kLvmGetItemA)) return {};
    text.TakeBack();
    std::ignore = text.Read(label);  // a process that is gone leaves blanks
  }
  return Text(UpToNul(seam_.ansi.ToText(label)));
}

void ListViewReader::SpeakOnDesktop(const Spot& spot, TextView label) {
  if (!spot.wasOverDesktop && !speaker_.HoldsSpeech()) {
    speaker_.SetSpeechPrefix(u"Desktop, ");
  } else if (IsBlank(label)) {
    speaker_.SetSpeechPrefix({});
    speaker_.SpeakText(u"Desktop ");
  } else {
    speaker_.SpeakText(label);
  }
}

void ListViewReader::SpeakInList(const Spot& spot, TextView label) {
  if (!IsBlank(label) && spot.window == spot.previousWindow) {
    return objectSpeech_.SpeakObjectText(label, spot);
  }
  const std::optional<Text> prefix = HolderPrefix(spot.window);
  if (IsBlank(label)) {
    const Text waiting = speaker_.TakeSpeechPrefix();
    speaker_.SpeakText(prefix.value_or(waiting));
  } else if (prefix) {
    speaker_.SetSpeechPrefix(*prefix);
  }
}

// The nearest window above the list that has a title; the desktop's icon list ends the walk.
std::optional<Text> ListViewReader::HolderPrefix(WindowHandle window) {
  WindowHandle holder = window;
  for (int round = 0; round < kMostHolders; ++round) {
    holder = seam_.windows.ParentOf(holder);
    if (holder == desktopWindows_.IconList()) return std::nullopt;
    const Text title = windowTitle_.GetWindowTitle(holder);
    if (IsBlank(title)) continue;
    return Text(Trimmed(title)).append(u", ");
  }
  return std::nullopt;
}

void ListViewReader::PlayIconSounds(const ListViewHit& hit) {
  const bool onItem = (hit.flags & (kHitIcon | kHitLabel)) != 0;
  if (!onItem) {
    if (mWasOnIcon) eventSounds_.PlayEarcon(u"OffIcon");
  } else if (hit.item != mLastIconItem || !mWasOnIcon) {
    eventSounds_.PlayEarcon(u"NewIcon");
    mLastIconItem = hit.item;
  }
  mWasOnIcon = onItem;
}

}  // namespace pointalk
