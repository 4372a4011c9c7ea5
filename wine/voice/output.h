// The newer engine's voice by interface, and the output that it gives. Where POINTALK_SAPI5_OUTPUT is not set
// the voice has no such interface, as Wine's own has none. Else it says what becomes of the questions:
//   audio    the output is an audio device and takes its state
//   stuck    it refuses its state
//   file     the output is a stream that has no state
//   refused  there is no output
// Each question becomes a line: "sapi5 output" and "sapi5 output state".
#pragma once

#include <windows.h>

#include <sapi.h>

namespace pointalk::wine {

// Null where there is none. The caller's reference.
ISpVoice* VoiceByInterface();

}  // namespace pointalk::wine
