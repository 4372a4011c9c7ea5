#include "wine/voice/voices.h"

#include <algorithm>
#include <cmath>

namespace pointalk::wine {

int WordsPerMinute(double wanted) { return static_cast<int>(std::lround(std::clamp(wanted, 80.0, 450.0))); }

int WordsPerMinuteOfRate(long rate) {
  return WordsPerMinute(175 * std::pow(3.0, static_cast<double>(std::clamp(rate, -10L, 10L)) / 10));
}

Sound SoundOf(std::size_t voice, int wordsPerMinute, long volume) {
  return {kVoices[voice].espeak, kVoices[voice].pitch, wordsPerMinute,
          static_cast<int>(std::clamp(volume, 0L, 100L))};
}

}  // namespace pointalk::wine
