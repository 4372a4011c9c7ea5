// The table of events and how they are struck.
#include "tones/event_sounds.h"

#include <algorithm>
#include <iterator>
#include <optional>

namespace pointalk {
namespace {

struct EventNote {
  TextView name;
  std::int32_t instrument;
  std::int32_t note;  // above 127 on purpose, and sent as it stands
  std::int32_t velocity;
  std::optional<bool> onDesktopIcon;  // what the event says about the desktop's icons
};

constexpr EventNote kEventNotes[] = {
    {u"NewWindow", 45, 231, 127, std::nullopt},
    {u"OffVisibleArea", 45, 200, 105, std::nullopt},
    {u"ListBoxHit", 45, 204, 105, std::nullopt},
    {u"OffIcon", 45, 223, 110, false},
    {u"NewIcon", 45, 226, 117, true},
};

constexpr std::int32_t kScrollInstrument = 1;
constexpr std::int32_t kScrollVelocity = 90;
constexpr std::int32_t kScrollLowest = 209;
constexpr std::int32_t kScrollHighest = 216;
constexpr std::int32_t kScrollPause = 20;  // milliseconds after each note

constexpr std::int32_t kTicksOfASound = 2;

}  // namespace

void EventSounds::PlayEarcon(TextView eventName) {
  if (!port.MidiOn()) return;
  StopEarcon();
  mEarconTicks = 0;
  int channel = 0;
  const auto row = std::find_if(std::begin(kEventNotes), std::end(kEventNotes),
                                [&](const EventNote& event) { return event.name == eventName; });
  if (row != std::end(kEventNotes)) {
    channel = kEventChannel;
    port.channels.mChannelProgram[kEventChannel] = row->instrument;
    port.channels.noteTarget[kEventChannel] = row->note;
    port.channels.noteVelocity[kEventChannel] = row->velocity;
    mOnDesktopIcon = row->onDesktopIcon.value_or(mOnDesktopIcon);
  } else if (eventName == u"ScrollUp") {
    channel = kEventChannel;
    PlayScroll(kScrollLowest, kScrollHighest);
  } else if (eventName == u"ScrollDown") {
    channel = kEventChannel;
    PlayScroll(kScrollHighest, kScrollLowest);
  }
  port.StrikeNote(channel);
}

void EventSounds::CountTick() {
  if (mEarconTicks <= kTicksOfASound) ++mEarconTicks;  // beyond that the count itself tells nothing more
  if (mEarconTicks > kTicksOfASound) StopEarcon();
}

// Eight notes; the caller strikes the last one once more.
void EventSounds::PlayScroll(int first, int last) {
  port.channels.mChannelProgram[kEventChannel] = kScrollInstrument;
  port.channels.noteVelocity[kEventChannel] = kScrollVelocity;
  const int step = first < last ? 1 : -1;
  for (int note = first; note != last + step; note += step) {
    port.channels.noteTarget[kEventChannel] = note;
    port.StrikeNote(kEventChannel);
    delay.BusyWait(kScrollPause);
  }
}

}  // namespace pointalk
