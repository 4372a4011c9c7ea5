// The three voices, and how their speed is mapped to espeak-ng's.
#pragma once

#include <array>
#include <string_view>

#include "wine/voice/utterances.h"

namespace pointalk::wine {

struct VoiceOfEspeak {
  const char16_t* description;
  const char* espeak;
  int pitch;   // 0 to 99
  int gender;  // in the numbers of the older engine's criteria: 1 female, 0 any other
};

constexpr std::array<VoiceOfEspeak, 3> kVoices{{
    {u"Microsoft Mary", "en-us+f3", 50, 1},
    {u"Microsoft Mike", "en-us", 60, 0},
    {u"Microsoft Sam", "en-us+m7", 20, 0},
}};

// Below 80 and above 450 words per minute espeak-ng no longer gets slower, or garbles.
int WordsPerMinute(double wanted);

// The newer engine's rate: 0 is 175 words per minute, 10 three times as fast, -10 a third as fast.
int WordsPerMinuteOfRate(long rate);

Sound SoundOf(std::size_t voice, int wordsPerMinute, long volume);

}  // namespace pointalk::wine
