#include "wine/voice/sapi5.h"

#include <algorithm>
#include <chrono>

#include "wine/heard/heard.h"
#include "wine/voice/recorded.h"
#include "wine/voice/voice_tokens.h"
#include "wine/voice/voices.h"

namespace pointalk::wine {

namespace {

enum : DISPID { kRate = 1, kVolume, kVoice, kGetVoices, kSpeak, kWaitUntilDone };

const std::vector<Member>& Members() {
  static const auto& members = *new std::vector<Member>{
      {L"Rate", kRate},           {L"Volume", kVolume}, {L"Voice", kVoice},
      {L"GetVoices", kGetVoices}, {L"Speak", kSpeak},   {L"WaitUntilDone", kWaitUntilDone}};
  return members;
}

constexpr LONG kAsynchronous = 1;
constexpr LONG kPurge = 2;

}  // namespace

Sapi5Voice::Sapi5Voice() : LateBound(Members(), kSapi5Interface) {
  HeardLine("created").Ascii("class", "sapi5").Write();
}

Sapi5Voice::~Sapi5Voice() { HeardLine("released").Ascii("class", "sapi5").Write(); }

HRESULT Sapi5Voice::Call(DISPID member, Access access, const Arguments& arguments, VARIANT& result) {
  if (member == kRate) return RecordedNumber("sapi5 rate", mRate, access, arguments, result);
  if (member == kVolume) return RecordedNumber("sapi5 volume", mVolume, access, arguments, result);
  if (member == kVoice) return Voice(access, arguments, result);
  if (access != Access::kGetOrCall) return DISP_E_MEMBERNOTFOUND;
  if (member == kSpeak) return Speak(arguments, result);
  if (member == kWaitUntilDone) return WaitUntilDone(arguments, result);
  if (member != kGetVoices) return DISP_E_MEMBERNOTFOUND;
  HeardLine("sapi5 voices").Write();
  SetObject(result, new VoiceList);
  return S_OK;
}

HRESULT Sapi5Voice::Voice(Access access, const Arguments& arguments, VARIANT& result) {
  HeardLine line("sapi5 voice");
  if (access == Access::kGetOrCall) {
    line.Ascii("how", "get").Number("index", static_cast<LONG>(mVoice)).Write();
    SetObject(result, new VoiceToken(mVoice));
    return S_OK;
  }
  IDispatch* object = nullptr;
  HRESULT outcome = arguments.Object(0, object);
  if (SUCCEEDED(outcome)) outcome = VoiceToken::IndexOf(*object, mVoice);
  line.Ascii("how", access == Access::kPut ? "put" : "putref").Number("index", static_cast<LONG>(mVoice));
  line.Text("description", kVoices[mVoice].description).Number("result", outcome).Write();
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
  if (flags & kPurge) mUtterances.CutAll();
  const std::int64_t number = mUtterances.Say(text, SoundOf(mVoice, WordsPerMinuteOfRate(mRate), mVolume));
  line.Number("utterance", number).Write();
  if (!(flags & kAsynchronous)) {
    mUtterances.WaitUntilOver(number);
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
    bool done = mUtterances.AllOverWithin(std::chrono::milliseconds(std::max(limit, LONG{0})));
    while (!done && limit < 0) done = mUtterances.AllOverWithin(std::chrono::seconds(1));
    line.Flag("done", done);
    SetTruth(result, done);
  }
  line.Write();
  return outcome;
}

}  // namespace pointalk::wine
