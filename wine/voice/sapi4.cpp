#include "wine/voice/sapi4.h"

#include <algorithm>
#include <chrono>
#include <cmath>

#include "wine/heard/heard.h"
#include "wine/voice/recorded.h"
#include "wine/voice/voices.h"

namespace pointalk::wine {

namespace {

enum : DISPID {
  kSpeed = 1,
  kVolumeLeft,
  kVolumeRight,
  kLastWordPosition,
  kFind,
  kSelect,
  kSpeak,
  kAudioReset,
  kSpeaking,
};

const std::vector<Member>& Members() {
  static const auto& members = *new std::vector<Member>{
      {L"Speed", kSpeed}, {L"VolumeLeft", kVolumeLeft}, {L"VolumeRight", kVolumeRight},
      {L"Find", kFind},   {L"Select", kSelect},         {L"LastWordPosition", kLastWordPosition},
      {L"Speak", kSpeak}, {L"AudioReset", kAudioReset}, {L"Speaking", kSpeaking}};
  return members;
}

// Criteria are "key=value" pairs with semicolons between them.
bool Matches(const VoiceOfEspeak& voice, std::u16string_view criteria) {
  while (!criteria.empty()) {
    const std::u16string_view pair = criteria.substr(0, criteria.find(u';'));
    criteria.remove_prefix(std::min(pair.size() + 1, criteria.size()));
    const bool matches = pair == u"Mfg=Microsoft" || (pair == u"Gender=1" && voice.gender == 1) ||
                         (pair == u"Gender=0" && voice.gender == 0);
    if (!matches) return false;
  }
  return true;
}

std::size_t WordBegin(std::u16string_view text, std::size_t at) {
  const std::size_t blank = text.substr(0, std::min(at + 1, text.size())).find_last_of(u' ');
  return blank == std::u16string_view::npos ? 0 : blank + 1;
}

}  // namespace

Sapi4Voice::Sapi4Voice() : LateBound(Members(), kSapi4Interface) {
  HeardLine("created").Ascii("class", "sapi4").Write();
}

Sapi4Voice::~Sapi4Voice() { HeardLine("released").Ascii("class", "sapi4").Write(); }

HRESULT Sapi4Voice::Call(DISPID member, Access access, const Arguments& arguments, VARIANT& result) {
  if (member == kSpeed) return Speed(access, arguments, result);
  if (member == kVolumeLeft)
    return RecordedNumber("sapi4 volume left", mVolumeLeft, access, arguments, result);
  if (member == kVolumeRight)
    return RecordedNumber("sapi4 volume right", mVolumeRight, access, arguments, result);
  if (member == kLastWordPosition) return LastWordPosition(access, arguments, result);
  if (access != Access::kGetOrCall) return DISP_E_MEMBERNOTFOUND;
  if (member == kFind) return Find(arguments, result);
  if (member == kSelect) return Select(arguments);
  if (member == kSpeak) return Speak(arguments);
  if (member == kAudioReset) return AudioReset();
  if (member == kSpeaking) return Speaking(result);
  return DISP_E_MEMBERNOTFOUND;
}

// A whole number where it is one, as the real control gives; fractions are kept.
HRESULT Sapi4Voice::Speed(Access access, const Arguments& arguments, VARIANT& result) {
  HeardLine line("sapi4 speed");
  if (access != Access::kGetOrCall) {
    const HRESULT outcome = arguments.Real(0, mSpeed);
    line.Ascii("how", "put").Real("value", mSpeed).Number("result", outcome).Write();
    return outcome;
  }
  line.Ascii("how", "get").Real("value", mSpeed).Write();
  result.vt = VT_R8;
  result.dblVal = mSpeed;
  const bool whole = mSpeed == std::floor(mSpeed) && std::abs(mSpeed) < 1e9;
  if (whole) SetWhole(result, std::lround(mSpeed));
  return S_OK;
}

HRESULT Sapi4Voice::LastWordPosition(Access access, const Arguments& arguments, VARIANT& result) {
  NoticeNewWord();
  return RecordedNumber("sapi4 last word position", mLastWordPosition, access, arguments, result);
}

// The engine's own notices of words are not to be had from a wave: the position follows the time.
void Sapi4Voice::NoticeNewWord() {
  const auto at = mUtterances.Position(mUtterance);
  if (!at) return;
  const std::size_t begin = WordBegin(mText, *at);
  if (begin == mLastWordBegin) return;
  mLastWordBegin = begin;
  mLastWordPosition = static_cast<LONG>(begin);
}

// Voices are numbered from 1.
HRESULT Sapi4Voice::Find(const Arguments& arguments, VARIANT& result) const {
  HeardLine line("sapi4 find");
  std::u16string criteria;
  HRESULT outcome = arguments.Text(0, criteria);
  LONG number = 0;
  for (std::size_t i = kVoices.size(); i > 0; --i)
    if (Matches(kVoices[i - 1], criteria)) number = static_cast<LONG>(i);
  if (SUCCEEDED(outcome) && number == 0) outcome = E_INVALIDARG;
  line.Text("criteria", criteria).Number("number", number).Number("result", outcome).Write();
  if (SUCCEEDED(outcome)) SetWhole(result, number);
  return outcome;
}

HRESULT Sapi4Voice::Select(const Arguments& arguments) {
  HeardLine line("sapi4 select");
  LONG number = 0;
  HRESULT outcome = arguments.Whole(0, number);
  if (SUCCEEDED(outcome) && (number < 1 || number > static_cast<LONG>(kVoices.size())))
    outcome = E_INVALIDARG;
  line.Number("number", number).Number("result", outcome).Write();
  if (SUCCEEDED(outcome)) mVoice = static_cast<std::size_t>(number - 1);
  return outcome;
}

HRESULT Sapi4Voice::Speak(const Arguments& arguments) {
  HeardLine line("sapi4 speak");
  std::u16string text;
  const HRESULT outcome = arguments.Text(0, text);
  line.Text("text", text);
  if (FAILED(outcome)) {
    line.Number("result", outcome).Write();
    return outcome;
  }
  mText = text;
  mLastWordPosition = 0;
  mLastWordBegin = 0;
  const auto volume = static_cast<LONG>((std::int64_t{mVolumeLeft} + mVolumeRight) / 2);
  mUtterance = mUtterances.Say(text, SoundOf(mVoice, WordsPerMinute(mSpeed), volume));
  line.Number("utterance", mUtterance).Write();
  return S_OK;
}

HRESULT Sapi4Voice::AudioReset() {
  HeardLine("sapi4 audio reset").Write();
  mUtterances.CutAll();
  return S_OK;
}

// Where the environment says so, it is a control that does not tell.
HRESULT Sapi4Voice::Speaking(VARIANT& result) {
  if (GetEnvironmentVariableW(L"POINTALK_SAPI4_SPEAKING", nullptr, 0) != 0) return DISP_E_MEMBERNOTFOUND;
  const bool speaking = !mUtterances.AllOverWithin(std::chrono::milliseconds(0));
  HeardLine("sapi4 speaking").Flag("value", speaking).Write();
  SetTruth(result, speaking);
  return S_OK;
}

}  // namespace pointalk::wine
