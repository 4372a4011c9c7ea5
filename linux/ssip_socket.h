// The socket of speech-dispatcher.
#pragma once

#include <optional>
#include <string>

#include "linux/owned.h"
#include "linux/ssip.h"

namespace pointalk::linux {

// A connection that never blocks; no value where the server is not there. Where it is installed and only not
// running it is started, for which this waits some seconds at most. Not for the form's thread.
std::optional<OwnedFile> ConnectToSpeechDispatcher();

// The command by which one of our connections tells whose it is.
std::string SsipGreeting(const char* connection);

// What is there to be read; false when the connection has ended.
bool ReadSsip(int socket, SsipLines& lines);

// The program is on this machine, or its server's address is given.
bool HasSpeechDispatcher();

}  // namespace pointalk::linux
