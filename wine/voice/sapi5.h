// The newer engine: an object of the shape of SAPI 5's SpVoice.
#pragma once

#include "wine/voice/late_bound.h"
#include "wine/voice/utterances.h"

namespace pointalk::wine {

constexpr CLSID kSapi5Class = {0x96749377, 0x3391, 0x11D2, {0x9E, 0xE3, 0x00, 0xC0, 0x4F, 0x79, 0x73, 0x96}};
constexpr IID kSapi5Interface = {
    0x269316D8, 0x57BD, 0x11D2, {0x9E, 0xEE, 0x00, 0xC0, 0x4F, 0x79, 0x73, 0x96}};

// A text in which what POINTALK_SAPI5_HANGS holds occurs is one that Speak never returns from. Rate, Volume
// and Voice keep what they are given, also outside the limits of the real engine; the speech itself keeps
// within them.
class Sapi5Voice final : public LateBound {
 public:
  Sapi5Voice();
  ~Sapi5Voice() override;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override;

 protected:
  HRESULT Call(DISPID member, Access access, const Arguments& arguments, VARIANT& result) override;

 private:
  HRESULT Voice(Access access, const Arguments& arguments, VARIANT& result);
  HRESULT Speak(const Arguments& arguments, VARIANT& result);
  HRESULT WaitUntilDone(const Arguments& arguments, VARIANT& result);

  LONG rate_ = 0;
  LONG volume_ = 100;
  std::size_t voice_ = 0;
  Utterances utterances_;
};

}  // namespace pointalk::wine
