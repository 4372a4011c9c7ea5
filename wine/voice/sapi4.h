// The older engine: an object of the shape of SAPI 4's text-to-speech control.
#pragma once

#include "wine/voice/late_bound.h"
#include "wine/voice/utterances.h"

namespace pointalk::wine {

constexpr CLSID kSapi4Class = {0xEEE78591, 0xFE22, 0x11D0, {0x8B, 0xEF, 0x00, 0x60, 0x08, 0x18, 0x41, 0xDE}};
constexpr IID kSapi4Interface = {
    0xEEE78590, 0xFE22, 0x11D0, {0x8B, 0xEF, 0x00, 0x60, 0x08, 0x18, 0x41, 0xDE}};

// Speak queues and returns; AudioReset silences. Speed is in words per minute.
class Sapi4Voice final : public LateBound {
 public:
  Sapi4Voice();
  ~Sapi4Voice() override;

 protected:
  HRESULT Call(DISPID member, Access access, const Arguments& arguments, VARIANT& result) override;

 private:
  HRESULT Speed(Access access, const Arguments& arguments, VARIANT& result);
  HRESULT LastWordPosition(Access access, const Arguments& arguments, VARIANT& result);
  HRESULT Find(const Arguments& arguments, VARIANT& result) const;
  HRESULT Select(const Arguments& arguments);
  HRESULT Speak(const Arguments& arguments);
  HRESULT AudioReset();
  HRESULT Speaking(VARIANT& result);
  void NoticeNewWord();

  double speed_ = 150;
  LONG volumeLeft_ = 100;
  LONG volumeRight_ = 100;
  std::size_t voice_ = 0;
  std::u16string text_;         // spoken last
  std::int64_t utterance_ = 0;  // its number
  LONG lastWordPosition_ = 0;   // in characters from the text's beginning; what is put stays until a new word
  std::size_t lastWordBegin_ = 0;  // of the word that was sounding when the position was last looked at
  Utterances utterances_;
};

}  // namespace pointalk::wine
