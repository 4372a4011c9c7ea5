#include "win32/engine_objects.h"

#include <utility>

#include "platform/speech_engines.h"
#include "win32/ansi.h"
#include "win32/voice_output.h"

namespace pointalk::win32 {
namespace {

// {96749377-3391-11D2-9EE3-00C04F797396}
constexpr CLSID kSapi5Voice = {0x96749377, 0x3391, 0x11D2, {0x9E, 0xE3, 0x00, 0xC0, 0x4F, 0x79, 0x73, 0x96}};
// {EEE78591-FE22-11D0-8BEF-0060081841DE}
constexpr CLSID kSapi4Control = {
    0xEEE78591, 0xFE22, 0x11D0, {0x8B, 0xEF, 0x00, 0x60, 0x08, 0x18, 0x41, 0xDE}};

constexpr ULONGLONG kBeginsWithin = 500;  // milliseconds from a text to its first sound

std::optional<std::int32_t> AsNumber(std::optional<Variant> value) {
  if (!value || !value->Become(VT_I4)) return std::nullopt;
  return value->Get().lVal;
}

std::optional<double> AsReal(std::optional<Variant> value) {
  if (!value || !value->Become(VT_R8)) return std::nullopt;
  return value->Get().dblVal;
}

std::optional<bool> AsTruth(std::optional<Variant> value) {
  if (!value || !value->Become(VT_BOOL)) return std::nullopt;
  return value->Get().boolVal != VARIANT_FALSE;
}

bool CreateInto(LateBound& object, const CLSID& classId) {
  auto created = LateBound::Create(classId);
  if (!created) return false;
  object = std::move(*created);
  return true;
}

constexpr int kNotMarkup = 16;  // the flag of the engine that has it speak what would be markup otherwise

// White space of every kind, since it is not known which of it the engine skips: the flag does no harm where
// it skips less.
constexpr TextView kBlanks =
    u" \t\n\v\f\r\u0085\u00A0\u1680\u2000\u2001\u2002\u2003\u2004\u2005\u2006\u2007\u2008\u2009\u200A\u2028"
    u"\u2029\u202F\u205F\u3000";

// The engine takes a text for markup when it begins so: "< Back" would be silent, and what another program
// wrote would be obeyed.
bool LooksLikeMarkup(TextView text) {
  const std::size_t first = text.find_first_not_of(kBlanks);
  return first != TextView::npos && text[first] == u'<';
}

}  // namespace

bool Sapi5Object::Create() { return CreateInto(voice_, kSapi5Voice); }

std::optional<double> Sapi5Object::Rate() { return AsNumber(voice_.Get(L"Rate")); }

bool Sapi5Object::SetRate(double rate) { return voice_.Put(L"Rate", Variant(rate)); }

bool Sapi5Object::SetVolume(double volume) { return voice_.Put(L"Volume", Variant(volume)); }

std::optional<std::int32_t> Sapi5Object::VoiceCount() {
  auto voices = voice_.Fetch(L"GetVoices");
  if (!voices) return std::nullopt;
  return AsNumber(voices->Get(L"Count"));
}

std::optional<LateBound> Sapi5Object::VoiceAt(std::int32_t index) {
  auto voices = voice_.Fetch(L"GetVoices");
  if (!voices) return std::nullopt;
  return voices->Fetch(L"Item", {Variant(index).Get()});
}

std::optional<Text> Sapi5Object::VoiceDescription(std::int32_t index) {
  auto voice = VoiceAt(index);
  if (!voice) return std::nullopt;
  auto description = voice->Get(L"GetDescription");
  if (!description || !description->Become(VT_BSTR)) return std::nullopt;
  return FromComText(description->Get().bstrVal);
}

bool Sapi5Object::SetVoice(std::int32_t index) {
  const auto voice = VoiceAt(index);
  return voice && voice_.PutReference(L"voice", *voice);
}

bool Sapi5Object::Speak(TextView text, std::optional<int> flags) {
  const Variant words(text);
  if ((flags.value_or(0) & kSpeakPurgeFirst) != 0) StopOutput(voice_);
  if (LooksLikeMarkup(text)) flags = flags.value_or(0) | kNotMarkup;
  if (!flags) return voice_.Call(L"Speak", {words.Get()});
  return voice_.Call(L"Speak", {words.Get(), Variant(std::int32_t{*flags}).Get()});
}

bool Sapi5Object::IsSpeaking() {
  constexpr std::int32_t kNoWait = 0;
  return !AsTruth(voice_.Get(L"WaitUntilDone", {Variant(kNoWait).Get()})).value_or(true);
}

bool Sapi4Object::Create() { return CreateInto(control_, kSapi4Control); }

std::optional<double> Sapi4Object::Speed() { return AsReal(control_.Get(L"Speed")); }

bool Sapi4Object::SetSpeed(double speed) { return control_.Put(L"Speed", Variant(speed)); }

bool Sapi4Object::SetVolumeLeft(double volume) { return control_.Put(L"VolumeLeft", Variant(volume)); }

bool Sapi4Object::SetVolumeRight(double volume) { return control_.Put(L"VolumeRight", Variant(volume)); }

std::optional<double> Sapi4Object::Find(TextView criteria) {
  const Variant wanted(ThroughAnsi(criteria));
  return AsReal(control_.Get(L"Find", {wanted.Get()}));
}

bool Sapi4Object::Select(double voice) { return control_.Call(L"Select", {Variant(voice).Get()}); }

void Sapi4Object::Release() {
  control_ = LateBound();
  spokeAt_.reset();
}

bool Sapi4Object::AudioReset() {
  if (!control_.Call(L"AudioReset")) return false;
  spokeAt_.reset();
  return true;
}

bool Sapi4Object::Speak(TextView text) {
  const Variant words(text);
  if (!control_.Call(L"Speak", {words.Get()})) return false;
  spokeAt_ = GetTickCount64();
  return true;
}

bool Sapi4Object::IsSpeaking() {
  if (!spokeAt_) return false;
  if (GetTickCount64() - *spokeAt_ < kBeginsWithin) return true;
  return AsTruth(control_.Get(L"Speaking")).value_or(true);
}

std::optional<double> Sapi4Object::LastWordPosition() { return AsReal(control_.Get(L"LastWordPosition")); }

bool Sapi4Object::SetLastWordPosition(double position) {
  return control_.Put(L"LastWordPosition", Variant(position));
}

}  // namespace pointalk::win32
