// Speaks through whichever engine is in use.
#include "speech/speaker.h"

#include <tuple>
#include <utility>

#include "speech/phonetics.h"
#include "text/text_rules.h"

namespace pointalk {
namespace {

constexpr TextView kNothingSaid = u"~!@#$";
constexpr int kMostStalls = 100;

}  // namespace

void Speaker::SpeakText(TextView text) {
  if (mHoldSpeech) {
    mHeldText = text;
    return;
  }
  Text said(text);
  if (pronouncer.ClassNameToWords() == kClockClassWords) said = SpokenClock(said);
  input.mShiftDown = keys.KeyDown(kKeyShift);
  if (said == mLastSpoken) return;
  mLastSpoken = said;
  if (IsBlank(said)) return;  // the prefix waits for a text that can be heard
  const Text spoken = TakeSpeechPrefix() + pronouncer.PronounceText(said);
  if (!mMuted) InterruptAndSpeak(spoken);
}

void Speaker::SpeakRaw(TextView text) {
  if (mHoldSpeech) return;
  mLastSpoken = kNothingSaid;
  if (IsBlank(text)) return;
  const Text said(text);  // the text may be the pending click itself
  input.mPendingEventText.clear();
  if (!mMuted) InterruptAndSpeak(said);
}

void Speaker::SpeakAndWait(TextView text) {
  mHoldSpeech = false;
  mLastSpoken = kNothingSaid;
  if (text.empty() || mMuted) return;
  const Text said(text);  // events that are handled meanwhile may change the field that the text lies in
  if (settings.mSapiVersion == 5) {
    std::ignore = engine.Speak(u" ", kSpeakAsyncPurge);  // a silent engine leaves everything as it is
    std::ignore = engine.Speak(said, kSpeakPurgeFirst);
    return;
  }
  InterruptAndSpeak(said);
  if (settings.mSapiVersion == 4) WaitForLastWord(said.size());
}

Text Speaker::TakeSpeechPrefix() { return std::exchange(mSpeechPrefix, Text()); }

void Speaker::mnuVoiceMute_Click() {
  mMuted = !mMuted;
  panel.SetMenuChecked(u"mnuVoiceMute", !panel.MenuChecked(u"mnuVoiceMute"));
}

void Speaker::InterruptAndSpeak(TextView text) {
  if (settings.mSapiVersion == 5) {
    std::ignore = engine.Speak(u" ", kSpeakAsyncPurge);  // a silent engine leaves everything as it is
    std::ignore = engine.Speak(text, kSpeakAsyncPurge);
    return;
  }
  if (auto* control = engine.AsSapi4()) std::ignore = control->AudioReset();
  std::ignore = engine.Speak(text, std::nullopt);
}

// The engine is done when it reports no word beyond the position that was last put back to 0. Both readings
// of the loop's test are made whatever the first one gives.
void Speaker::WaitForLastWord(std::size_t length) {
  int stalls = 0;
  for (;;) {
    const bool beforeEnd = LastWordPosition() < static_cast<double>(length);
    const bool begun = LastWordPosition() > 0;
    if (!beforeEnd || !begun) return;
    stalls = LastWordPosition() == 0 ? stalls + 1 : 0;
    if (stalls > kMostStalls) return;
    if (auto* control = engine.AsSapi4()) std::ignore = control->SetLastWordPosition(0);  // the tests decide
    panel.LetMessagesRun();
  }
}

double Speaker::LastWordPosition() {
  auto* control = engine.AsSapi4();
  return control ? control->LastWordPosition().value_or(0) : 0;
}

}  // namespace pointalk
