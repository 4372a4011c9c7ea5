// From a cell to notes and velocities.
#include "tones/position_tones.h"

#include <algorithm>
#include <cmath>

#include "text/numbers.h"

namespace pointalk {
namespace {

constexpr std::int32_t kLowestLowerNote = 40;
constexpr std::int32_t kLowestHigherNote = kLowestLowerNote + 36;  // three octaves above
constexpr double kLowerToneBoost = 20;  // velocity that the lower tone has beyond its volume
constexpr double kScalingStep = 5;      // velocity that a scaling of 1 takes per semitone

}  // namespace

void PositionTones::PlayCell(std::int32_t column, std::int32_t row) {
  if (!port.MouseTonesOn()) return;
  const ToneOffsets offsets = table.At(column, row, settings.mMelodyFormat);
  ChannelState& channels = port.channels;
  channels.noteTarget[kHigherToneChannel] = kLowestHigherNote + offsets.higher;
  channels.noteTarget[kLowerToneChannel] = kLowestLowerNote + offsets.lower;
  channels.noteVelocity[kHigherToneChannel] =
      ToneVelocity(settings.mHorizontalVolume, settings.mKeyboardScaling, offsets.higher);
  channels.noteVelocity[kLowerToneChannel] =
      ToneVelocity(settings.mVerticalVolume + kLowerToneBoost, settings.mKeyboardScaling, offsets.lower);
  port.PlayNote(kLowerToneChannel);
  if (settings.mMelodyFormat < 2) port.PlayNote(kHigherToneChannel);
}

std::int32_t GridIndex(double distance, double extent) {
  if (extent == 0) return 0;
  return static_cast<std::int32_t>(std::trunc(std::clamp(distance / extent * 20 - 0.1, -1e6, 1e6)));
}

std::int32_t ToneVelocity(double base, float scaling, std::int32_t offset) {
  const double velocity = base - double{scaling} * kScalingStep * offset;
  return static_cast<std::int32_t>(std::clamp(Rounded(velocity), 0.0, 127.0));
}

}  // namespace pointalk
