#include "speech/speaker.h"

#include <utility>

#include "speech/phonetics.h"
#include "text/text_rules.h"

namespace pointalk {
namespace {

constexpr TextView kNoTextSaid = u"~!@#$";

}  // namespace

void Speaker::SpeakText(TextView text) {
  if (mHoldSpeech) {
    mHeldText = text;
    return;
  }
  Text said(text);
  if (pronouncer_.ClassNameToWords(subject_) == kClockClassWords) said = SpokenClock(said);
  keys_.ReadForUtterance();
  if (said == mLastSpoken) return;
  mLastSpoken = said;
  if (IsBlank(said)) return;  // the prefix waits for a text that can be heard
  const Text spoken = TakeSpeechPrefix() + pronouncer_.PronounceText(said);
  if (!mMuted) engine_.Calls().Say(spoken);
}

void Speaker::SpeakRaw(TextView text) {
  if (mHoldSpeech) return;
  mLastSpoken = kNoTextSaid;
  if (IsBlank(text)) return;
  const Text said(text);  // the text may be the click that is forgotten
  clicks_.Forget();
  if (!mMuted) engine_.Calls().Say(said);
}

void Speaker::SpeakAndWait(TextView text) {
  mHoldSpeech = false;
  mLastSpoken = kNoTextSaid;
  if (text.empty() || mMuted) return;
  const Text said(text);  // events that are handled meanwhile may change what the given text lies in
  engine_.Calls().SayAndWait(said);
}

Text Speaker::TakeSpeechPrefix() { return std::exchange(mSpeechPrefix, Text()); }

}  // namespace pointalk
