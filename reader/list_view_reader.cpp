// Hit test, label, speech, icon sounds.
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

bool ListViewReader::ReadListView(const Spot& spot) {
  history.mListViewRead = true;
  const ListViewHit hit = HitTest(spot);
  mListViewItemText = ListViewItemText(spot.window, hit.item, hit.subItem);
  DropControlAtEnd(mListViewItemText);
  bool handled = false;
  if (history.mOverDesktop) {
    SpeakOnDesktop();
  } else {
    handled = SpeakInList(spot.window);
  }
  PlayIconSounds(hit);
  return handled;
}

// A test that fails leaves the record as it was sent, which counts as on item 0.
ListViewHit ListViewReader::HitTest(const Spot& spot) {
  ListViewHit hit;
  hit.client = seam.windows.ToClient(spot.window, spot.pointer).value_or(spot.pointer);
  std::ignore = seam.messages.Send(spot.window, kLvmGetItemCount, 0, 0);  // nothing depends on the count
  const ProcessId process = seam.windows.ProcessOf(spot.window).value_or(0);
  HitTestRecord record(hit, seam.memory.PointerBytes(process));
  RemoteBlock remote(seam.memory, process, record.Bytes().size());
  if (remote.Write(record.Bytes())) {
    std::ignore = seam.messages.Send(spot.window, kLvmSubItemHitTest, 0, remote.Address());
    std::ignore = remote.Read(record.Bytes());
  }
  if (!mHitRecordFreeable) remote.Abandon();
  mHitRecordFreeable = true;
  return record.Hit();
}

Text ListViewReader::ListViewItemText(WindowHandle window, std::int32_t item,
                                      [[maybe_unused]] std::int32_t subItem) {
  if (item == -1) return {};
  const ProcessId process = seam.windows.ProcessOf(window).value_or(0);
  std::array<std::byte, kLabelBytes> label{};
  label.fill(std::byte{' '});
  RemoteBlock text(seam.memory, process, kLabelBytes);
  if (text.Address() != 0) {
    const int pointerBytes = seam.memory.PointerBytes(process);
    ItemRecord record(item, text.Address(), kLabelBytes, pointerBytes);
    RemoteBlock remote(seam.memory, process, record.Bytes().size());
    if (remote.Write(record.Bytes()))
      std::ignore = seam.messages.Send(window, kLvmGetItemA, 0, remote.Address());
    std::ignore = text.Read(label);  // a process that is gone leaves blanks
  }
  return Text(UpToNul(seam.ansi.ToText(label)));
}

void ListViewReader::SpeakOnDesktop() {
  if (!history.mWasOverDesktop && !speaker.HoldsSpeech()) {
    speaker.SetSpeechPrefix(u"Desktop, ");
  } else if (IsBlank(mListViewItemText)) {
    speaker.SetSpeechPrefix({});
    speaker.SpeakText(u"Desktop ");
  } else {
    speaker.SpeakText(mListViewItemText);
  }
}

bool ListViewReader::SpeakInList(WindowHandle window) {
  if (!IsBlank(mListViewItemText) && window == history.mPreviousWindow) {
    speech.SpeakObjectText(mListViewItemText);
    return true;
  }
  const bool handled = SetHolderAsPrefix(window);
  if (IsBlank(mListViewItemText)) speaker.SpeakText(speaker.TakeSpeechPrefix());
  return handled;
}

bool ListViewReader::SetHolderAsPrefix(WindowHandle window) {
  WindowHandle holder = window;
  for (int round = 0; round < kMostHolders; ++round) {
    holder = seam.windows.ParentOf(holder);
    if (holder == desktop.mDesktopListView) return false;
    const Text title = titles.GetWindowTitle(holder);
    if (IsBlank(title)) continue;
    speaker.SetSpeechPrefix(Text(Trimmed(title)).append(u", "));
    return true;
  }
  return false;
}

void ListViewReader::PlayIconSounds(const ListViewHit& hit) {
  const bool onItem = (hit.flags & (kHitIcon | kHitLabel)) != 0;
  if (!onItem) {
    if (mWasOnIcon) sounds.PlayEarcon(u"OffIcon");
  } else if (hit.item != mLastIconItem || !mWasOnIcon) {
    sounds.PlayEarcon(u"NewIcon");
    mLastIconItem = hit.item;
  }
  mWasOnIcon = onItem;
}

}  // namespace pointalk
