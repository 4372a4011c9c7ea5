#include "wine/voice/sapi5.h"

#include <algorithm>
#include <chrono>

#include "wine/heard/heard.h"
#include "wine/voice/output.h"
#include "wine/voice/recorded.h"
#include "wine/voice/voice_tokens.h"
#include "wine/voice/voices.h"

namespace pointalk::wine {

namespace {

enum : DISPID { kRate = 1, kVolume, kVoice, kGetVoices, kSapi5Speak, kWaitUntilDone };

const std::vector<Member>& Sapi5Members() {
  static const auto& members = *new std::vector<Member>{
      {L"Rate", kRate},           {L"Volume", kVolume},    {L"Voice", kVoice},
      {L"GetVoices", kGetVoices}, {L"Speak", kSapi5Speak}, {L"WaitUntilDone", kWaitUntilDone}};
  return members;
}

constexpr LONG kAsynchronous = 1;
constexpr LONG kPurge = 2;

// Whether the environment names this text as the one that the engine never comes back from.
bool Hangs(const std::u16string& text) {
  wchar_t word[64];
  const DWORD length = GetEnvironmentVariableW(L"POINTALK_SAPI5_HANGS", word, 64);
  return length > 0 && length < 64 && text.find(std::u16string(word, word + length)) != std::u16string::npos;
}

}  // namespace

Sapi5Voice::Sapi5Voice() : LateBound(Sapi5Members(), kSapi5Interface) {
  HeardLine("created").Ascii("class", "sapi5").Write();
}

Sapi5Voice::~Sapi5Voice() { HeardLine("released").Ascii("class", "sapi5").Write(); }

// The voice by interface is an object of its own, which is all that its clients notice.
HRESULT Sapi5Voice::QueryInterface(REFIID id, void** object) {
  if (!object || id != __uuidof(ISpVoice)) return LateBound::QueryInterface(id, object);
  *object = VoiceByInterface();
  return *object ? S_OK : E_NOINTERFACE;
}

HRESULT Sapi5Voice::Call(DISPID member, Access access, const Arguments& arguments, VARIANT& result) {
  if (member == kRate) return RecordedNumber("sapi5 rate", rate_, access, arguments, result);
  if (member == kVolume) return RecordedNumber("sapi5 volume", volume_, access, arguments, result);
  if (member == kVoice) return Voice(access, arguments, result);
  if (access != Access::kGetOrCall) return DISP_E_MEMBERNOTFOUND;
  if (member == kSapi5Speak) return Speak(arguments, result);
  if (member == kWaitUntilDone) return WaitUntilDone(arguments, result);
  if (member != kGetVoices) return DISP_E_MEMBERNOTFOUND;
  HeardLine("sapi5 voices").Write();
  SetObject(result, new VoiceList);
  return S_OK;
}

HRESULT Sapi5Voice::Voice(Access access, const Arguments& arguments, VARIANT& result) {
  HeardLine line("sapi5 voice");
  if (access == Access::kGetOrCall) {
    line.Ascii("how", "get").Number("index", static_cast<LONG>(voice_)).Write();
    SetObject(result, new VoiceToken(voice_));
    return S_OK;
  }
  IDispatch* object = nullptr;
  HRESULT outcome = arguments.Object(0, object);
  if (SUCCEEDED(outcome)) outcome = VoiceToken::IndexOf(*object, voice_);
  line.Ascii("how", access == Access::kPut ? "put" : "putref").Number("index", static_cast<LONG>(voice_));
  line.Text("description", kVoices[voice_].description).Number("result", outcome).Write();
  return outcome;
}

// As the real engine does, a synchronous call blocks its thread without handling messages.
HRESULT Sapi5Voice::Speak(const Arguments& arguments, VARIANT& result) {
  HeardLine line("sapi5 speak");
  std::u16string text;
  LONG flags = 0;
  HRESULT outcome = arguments.Text(0, text);
  if (SUCCEEDED(outcome) && arguments.Given(1)) outcome = arguments.Whole(1, flags);
  line.Number("flags", flags).Flag("given", arguments.Given(1)).Text("text", text);
  if (FAILED(outcome)) {
    line.Number("result", outcome).Write();
    return outcome;
  }
  if (Hangs(text)) {
    line.Write();
    Sleep(INFINITE);
  }
  if (flags & kPurge) utterances_.CutAll();
  const std::int64_t number = utterances_.Say(text, SoundOf(voice_, WordsPerMinuteOfRate(rate_), volume_));
  line.Number("utterance", number).Write();
  if (!(flags & kAsynchronous)) {
    utterances_.WaitUntilOver(number);
    HeardLine("sapi5 speak over").Number("utterance", number).Write();
  }
  SetWhole(result, static_cast<LONG>(number));
  return S_OK;
}

// A time below 0 is one without a limit, as with the real engine.
HRESULT Sapi5Voice::WaitUntilDone(const Arguments& arguments, VARIANT& result) {
  HeardLine line("sapi5 wait until done");
  LONG limit = 0;
  const HRESULT outcome = arguments.Whole(0, limit);
  line.Number("limit", limit).Number("result", outcome);
  if (SUCCEEDED(outcome)) {
    bool done = utterances_.AllOverWithin(std::chrono::milliseconds(std::max(limit, LONG{0})));
    while (!done && limit < 0) done = utterances_.AllOverWithin(std::chrono::seconds(1));
    line.Flag("done", done);
    SetTruth(result, done);
  }
  line.Write();
  return outcome;
}

}  // namespace pointalk::wine
