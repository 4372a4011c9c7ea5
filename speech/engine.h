// The speech engine in use, and the one decision which generation it is called as.
#pragma once

#include <cstdint>

#include "platform/panel.h"
#include "platform/speech_engines.h"
#include "speech/engine_calls.h"
#include "speech/engine_object.h"
#include "speech/sapi4_calls.h"
#include "speech/sapi5_calls.h"
#include "text/text.h"

namespace pointalk {

class Engine {
 public:
  Engine(Sapi5Voice& sapi5, Sapi4Control& sapi4, Panel& panel);

  struct Found {
    bool mHaveSapi5 = false;
    bool mHaveSapi4 = false;
  };

  // Makes what can be made of both generations. A SAPI 5 voice becomes the object in use at once.
  Found CreateBoth();

  // The version chosen: 5 or 4, or 0 while none is; any other number comes from a typed answer or a file.
  // Choosing does not change the object: until KeepChosen a SAPI 5 voice may be called as SAPI 4, and speaks,
  // since both generations take a text alone.
  std::int32_t Version() const { return mSapiVersion; }
  void Choose(std::int32_t version) { mSapiVersion = version; }
  bool IsChosen() const { return mSapiVersion == 4 || mSapiVersion == 5; }

  // While both generations are there: the SAPI 5 voice says a text to its end at that rate, whatever is
  // chosen.
  void SayBySapi5(TextView text, double rate);

  // Makes the object be of the chosen version and releases the other one. SAPI 4 is released when none is
  // chosen.
  void KeepChosen();

  // What is in use, called as the chosen version; any number but 5 as SAPI 4.
  EngineCalls& Calls();

 private:
  Sapi5Voice& sapi5_;
  Sapi4Control& sapi4_;
  EngineObject object_;
  Sapi5Calls sapi5Calls_;
  Sapi4Calls sapi4Calls_;
  std::int32_t mSapiVersion = 0;
};

}  // namespace pointalk
