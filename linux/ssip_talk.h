// What a client has sent to a server of SSIP, and what that has answered.
#pragma once

#include <chrono>
#include <cstddef>
#include <deque>
#include <optional>
#include <set>
#include <string>
#include <string_view>

#include "linux/ssip.h"

namespace pointalk::linux {

// How the voice is to sound; what is not set is as the server has it.
struct VoiceSettings {
  int rate = 0;  // -100 to 100, as volume
  std::optional<int> volume;
  std::string type;  // one of SSIP's kinds of voices, or empty
  std::string name;  // a voice of the synthesizer, or empty

  friend bool operator==(const VoiceSettings&, const VoiceSettings&) = default;
};

// One connection. The server answers every command in turn, so that an error is known to be about the one
// whose answer is due. Each routine that gives bytes counts on their being sent before those of the next.
class SsipTalk {
 public:
  using Moment = std::chrono::steady_clock::time_point;

  // On a new connection, on which the server's settings are its own.
  void Begin();

  // The bytes of a command whose answer changes nothing.
  std::string Command(std::string_view line);

  // What is said before this is not waited for any more.
  void Cut();

  void Want(const VoiceSettings& settings) { wanted_ = settings; }

  // The bytes that set the voice up as it is wanted.
  std::string SetUp();

  // The bytes that say a line (of SsipText).
  std::string Speak(std::string_view line, Moment now);

  // A line that the server has sent.
  void Take(const SsipLine& line);

  // What was wanted last, but for what the server has refused: that is as the server has it.
  const VoiceSettings& Settings() const { return wanted_; }

  // Texts that the server has neither taken nor refused, and when the first of them was sent.
  std::size_t TextsDue() const { return textsDue_; }
  std::optional<Moment> OldestTextDue() const;

  // A text that was taken since the last cut is being spoken.
  bool IsSounding() const { return !sounding_.empty(); }

 private:
  enum class What { kOther, kText, kRate, kVolume, kType, kName };
  struct Due {
    What what = What::kOther;
    VoiceSettings with;  // what a setting was set to
    unsigned cut = 0;    // that a text came after
    Moment sent;
  };

  std::string Set(What what, const std::string& words);
  void TakeEvent(const SsipLine& line);
  void TakeAnswer(const SsipLine& line);

  std::deque<Due> due_;
  std::size_t textsDue_ = 0;
  unsigned cut_ = 0;                // counts the cuts
  std::set<std::string> sounding_;  // numbers of the texts that were taken since the last cut
  std::string eventText_;           // the number that the event being read is about
  VoiceSettings wanted_;
  VoiceSettings had_;  // what the server has taken
};

}  // namespace pointalk::linux
