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

void PositionTones::Play(Point pointer, ScreenPixels screen) {
  if (!midiPort_.MouseTonesOn()) return;
  // Columns count from the left, rows from the bottom.
  PlayCell(GridIndex(pointer.x, screen.width), GridIndex(screen.height - pointer.y, screen.height));
}

void PositionTones::PlayCell(std::int32_t column, std::int32_t row) {
  const ToneOffsets offsets = table_.At(column, row, settings_.mMelodyFormat);
  midiPort_.PlayNote(kLowerToneChannel, {kLowestLowerNote + offsets.lower,
                                         ToneVelocity(settings_.mVerticalVolume + kLowerToneBoost,
                                                      settings_.mKeyboardScaling, offsets.lower)});
  if (settings_.mMelodyFormat >= 2) return;
  midiPort_.PlayNote(kHigherToneChannel,
                     {kLowestHigherNote + offsets.higher,
                      ToneVelocity(settings_.mHorizontalVolume, settings_.mKeyboardScaling, offsets.higher)});
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
