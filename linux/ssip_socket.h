// The socket of speech-dispatcher.
#pragma once

#include <optional>
#include <string>

#include "linux/owned.h"

namespace pointalk::linux {

// A connection that never blocks; no value where the server is not there. Where it is installed and only not
// running it is started, for which this waits some seconds at most. Not for the form's thread.
std::optional<OwnedFile> ConnectToSpeechDispatcher();

// The program is on this machine, or its server's address is given.
bool HasSpeechDispatcher();

}  // namespace pointalk::linux
