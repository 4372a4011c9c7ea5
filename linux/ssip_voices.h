// The voices that speech-dispatcher has.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace pointalk::linux {

// Those of the user's language, without their variants; empty where the server gives no list, or once the
// list is unwanted. Takes up to 20 seconds; not for the form's thread.
std::vector<std::string> ListSpeechVoices(const std::function<bool()>& isUnwanted);

}  // namespace pointalk::linux
