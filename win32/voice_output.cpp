#include "win32/voice_output.h"

#include <sapi.h>

#include <tuple>

namespace pointalk::win32 {

// The output may be another one each time: the user chooses it in the system's settings.
void StopOutput(const LateBound& voice) {
  const auto byInterface = voice.As<ISpVoice>();
  if (!byInterface) return;
  ISpStreamFormat* stream = nullptr;
  if (FAILED(byInterface->GetOutputStream(&stream)) || stream == nullptr) return;
  const ComPointer<ISpStreamFormat> owned(stream);
  if (const auto audio = InterfaceOf<ISpAudio>(*stream))
    std::ignore = audio->SetState(SPAS_STOP, 0);  // the text cuts off all the same
}

}  // namespace pointalk::win32
