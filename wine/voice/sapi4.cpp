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
  kSapi4Speak,
  kAudioReset,
  kSpeaking,
};

const std::vector<Member>& Sapi4Members() {
  static const auto& members = *new std::vector<Member>{
      {L"Speed", kSpeed},      {L"VolumeLeft", kVolumeLeft}, {L"VolumeRight", kVolumeRight},
      {L"Find", kFind},        {L"Select", kSelect},         {L"LastWordPosition", kLastWordPosition},
      {L"Speak", kSapi4Speak}, {L"AudioReset", kAudioReset}, {L"Speaking", kSpeaking}};
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

Sapi4Voice::Sapi4Voice() : LateBound(Sapi4Members(), kSapi4Interface) {
  HeardLine("created").Ascii("class", "sapi4").Write();
}

Sapi4Voice::~Sapi4Voice() { HeardLine("released").Ascii("class", "sapi4").Write(); }

HRESULT Sapi4Voice::Call(DISPID member, Access access, const Arguments& arguments, VARIANT& result) {
  if (member == kSpeed) return Speed(access, arguments, result);
  if (member == kVolumeLeft)
    return RecordedNumber("sapi4 volume left", volumeLeft_, access, arguments, result);
  if (member == kVolumeRight)
    return RecordedNumber("sapi4 volume right", volumeRight_, access, arguments, result);
  if (member == kLastWordPosition) return LastWordPosition(access, arguments, result);
  if (access != Access::kGetOrCall) return DISP_E_MEMBERNOTFOUND;
  if (member == kFind) return Find(arguments, result);
  if (member == kSelect) return Select(arguments);
  if (member == kSapi4Speak) return Speak(arguments);
  if (member == kAudioReset) return AudioReset();
  if (member == kSpeaking) return Speaking(result);
  return DISP_E_MEMBERNOTFOUND;
}

// A whole number where it is one, as the real control gives; fractions are kept.
HRESULT Sapi4Voice::Speed(Access access, const Arguments& arguments, VARIANT& result) {
  HeardLine line("sapi4 speed");
  if (access != Access::kGetOrCall) {
    const HRESULT outcome = arguments.Real(0, speed_);
    line.Ascii("how", "put").Real("value", speed_).Number("result", outcome).Write();
    return outcome;
  }
  line.Ascii("how", "get").Real("value", speed_).Write();
  result.vt = VT_R8;
  result.dblVal = speed_;
  const bool whole = speed_ == std::floor(speed_) && std::abs(speed_) < 1e9;
  if (whole) SetWhole(result, std::lround(speed_));
  return S_OK;
}

HRESULT Sapi4Voice::LastWordPosition(Access access, const Arguments& arguments, VARIANT& result) {
  NoticeNewWord();
  return RecordedNumber("sapi4 last word position", lastWordPosition_, access, arguments, result);
}

// A wave has no word boundaries, so the position is reckoned from the time.
void Sapi4Voice::NoticeNewWord() {
  const auto at = utterances_.Position(utterance_);
  if (!at) return;
  const std::size_t begin = WordBegin(text_, *at);
  if (begin == lastWordBegin_) return;
  lastWordBegin_ = begin;
  lastWordPosition_ = static_cast<LONG>(begin);
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
  if (SUCCEEDED(outcome)) voice_ = static_cast<std::size_t>(number - 1);
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
  text_ = text;
  lastWordPosition_ = 0;
  lastWordBegin_ = 0;
  const auto volume = static_cast<LONG>((std::int64_t{volumeLeft_} + volumeRight_) / 2);
  utterance_ = utterances_.Say(text, SoundOf(voice_, WordsPerMinute(speed_), volume));
  line.Number("utterance", utterance_).Write();
  return S_OK;
}

HRESULT Sapi4Voice::AudioReset() {
  HeardLine("sapi4 audio reset").Write();
  utterances_.CutAll();
  return S_OK;
}

// Where the environment says so, it is a control that does not tell.
HRESULT Sapi4Voice::Speaking(VARIANT& result) {
  if (GetEnvironmentVariableW(L"POINTALK_SAPI4_SPEAKING", nullptr, 0) != 0) return DISP_E_MEMBERNOTFOUND;
  const bool speaking = !utterances_.AllOverWithin(std::chrono::milliseconds(0));
  HeardLine("sapi4 speaking").Flag("value", speaking).Write();
  SetTruth(result, speaking);
  return S_OK;
}

}  // namespace pointalk::wine
