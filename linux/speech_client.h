// Speaks through speech-dispatcher, without ever waiting for it on the form's thread but where the form wants
// to wait.
#pragma once

#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "linux/owned.h"
#include "linux/ssip_talk.h"
#include "text/text.h"

namespace pointalk::linux {

// Words go out on the caller's thread, which costs a tenth of a millisecond; a thread of its own connects,
// takes the answers, and connects again where the server went away. Words that cannot go out at once are
// kept, the newest only.
class SpeechClient {
 public:
  SpeechClient();
  ~SpeechClient();
  SpeechClient(const SpeechClient&) = delete;
  SpeechClient& operator=(const SpeechClient&) = delete;

  // Waits until a first attempt to connect is over, some seconds at most; false when there is no server.
  bool WaitForServer(std::chrono::milliseconds limit);

  // Cuts off what is being said.
  void Silence();

  // Says a line (of SsipText), after what is being said.
  void Say(const std::string& line);

  // Everything that was said has been spoken, or cut off, or there is nobody who could: no server when one
  // was looked for last, or one that has not taken a text for seconds.
  bool IsQuiet();

  // Has the settings changed by a function, between which and the present ones no other change comes.
  void Change(const std::function<void(VoiceSettings&)>& change);
  // Those that are in use; one that the server refused is as it was before.
  VoiceSettings Settings();

  // One of SSIP's kinds of voices, or the user's own where it is empty.
  void UseType(const std::string& type);

  // One of Voices() by its place. While they are not known they are asked for on another thread, and the
  // voice is used once they are, where no other one was chosen by then. False when there is none at that
  // place.
  bool UseListed(std::size_t place);

  // The voices of the user's language, without their variants; none before one of them was chosen.
  std::vector<std::string> Voices();

 private:
  struct State;

  std::shared_ptr<State> state_;
  std::thread thread_;
};

}  // namespace pointalk::linux
