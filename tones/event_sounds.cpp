#include "tones/event_sounds.h"

#include <algorithm>
#include <iterator>
#include <optional>

namespace pointalk {
namespace {

struct EventNote {
  TextView name;
  std::int32_t instrument;
  Note note;                          // its number is above 127 on purpose, and sent as it stands
  std::optional<bool> onDesktopIcon;  // what the event says about the desktop's icons
};

constexpr EventNote kEventNotes[] = {
    {u"NewWindow", 45, {231, 127}, std::nullopt},
    {u"OffVisibleArea", 45, {200, 105}, std::nullopt},
    {u"ListBoxHit", 45, {204, 105}, std::nullopt},
    {u"OffIcon", 45, {223, 110}, false},
    {u"NewIcon", 45, {226, 117}, true},
};

constexpr std::int32_t kScrollInstrument = 1;
constexpr std::int32_t kScrollVelocity = 90;
constexpr std::int32_t kScrollLowest = 209;
constexpr std::int32_t kScrollHighest = 216;
constexpr std::int32_t kScrollPause = 20;  // milliseconds after each note

constexpr std::int32_t kTicksOfASound = 2;

}  // namespace

void EventSounds::PlayEarcon(TextView eventName) {
  if (!midiPort_.MidiOn()) return;
  StopEarcon();
  mEarconTicks = 0;
  const auto row = std::find_if(std::begin(kEventNotes), std::end(kEventNotes),
                                [&](const EventNote& event) { return event.name == eventName; });
  if (row != std::end(kEventNotes)) {
    mOnDesktopIcon = row->onDesktopIcon.value_or(mOnDesktopIcon);
    StrikeEvent(row->instrument, row->note);
  } else if (eventName == u"ScrollUp") {
    PlayScroll(kScrollLowest, kScrollHighest);
  } else if (eventName == u"ScrollDown") {
    PlayScroll(kScrollHighest, kScrollLowest);
  } else {
    midiPort_.StrikeNote(0, {});
  }
}

void EventSounds::CountTick() {
  if (mEarconTicks <= kTicksOfASound) ++mEarconTicks;  // how far beyond does not matter
  if (mEarconTicks > kTicksOfASound) StopEarcon();
}

void EventSounds::StrikeEvent(std::int32_t instrument, Note note) {
  midiPort_.PresetChannelProgram(kEventChannel, instrument);
  midiPort_.StrikeNote(kEventChannel, note);
}

// Eight notes, and the last one once more.
void EventSounds::PlayScroll(int first, int last) {
  const int step = first < last ? 1 : -1;
  for (int number = first; number != last + step; number += step) {
    StrikeEvent(kScrollInstrument, {number, kScrollVelocity});
    delayLoop_.BusyWait(kScrollPause);
  }
  midiPort_.StrikeNote(kEventChannel, {last, kScrollVelocity});
}

}  // namespace pointalk
