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
  std::string Command(std::string_view line, Moment now);

  // The bytes that ask for being told when texts begin and end.
  std::string AskForEvents(Moment now);

  // The bytes of a command that changes nothing, by whose answer a server that still works is known from one
  // that is stopped; empty where an answer is due, or was due not long ago.
  std::string AskForSign(Moment now);

  // What is said before this is not waited for any more.
  void Cut();

  void Want(const VoiceSettings& settings) { wanted_ = settings; }

  // The bytes that set the voice up as it is wanted.
  std::string SetUp(Moment now);

  // The bytes that say a line (of SsipText).
  std::string Speak(std::string_view line, Moment now);

  // A line that the server has sent.
  void Take(const SsipLine& line, Moment now);

  // What was wanted last, but for what the server has refused: that is as the server has it.
  const VoiceSettings& Settings() const { return wanted_; }

  // Texts that the server has neither taken nor refused.
  std::size_t TextsDue() const { return textsDue_; }

  // The server has owed an answer for so long that it is not waited for any more.
  bool IsHung(Moment now) const;

  // A text that was taken since the last cut is being spoken, as far as the server tells. Of one that tells
  // no events this is not known, and does not hold after a while.
  bool IsSounding(Moment now);

 private:
  enum class What { kOther, kText, kEndEvents, kRate, kVolume, kType, kName };
  enum class Events { kUnknown, kCome, kNone };
  struct Due {
    What what = What::kOther;
    Moment sent;
    VoiceSettings with;  // what a setting was set to
    unsigned cut = 0;    // that a text came after
  };

  std::string Send(What what, std::string_view line, Moment now);
  void DropUntilText();
  void TakeEvent(const SsipLine& line);
  void TakeTextNumber(const std::string& number, Moment now);
  void TakeAnswer(const SsipLine& line);

  std::deque<Due> due_;
  Moment lastSent_;
  bool answersTextsOnly_ = false;
  std::size_t textsDue_ = 0;
  unsigned cut_ = 0;                // counts the cuts
  std::set<std::string> sounding_;  // numbers of the texts that were taken since the last cut
  Moment soundingSince_;            // when the first of them was taken
  Events events_ = Events::kUnknown;
  std::string eventText_;  // the number that the event being read is about
  VoiceSettings wanted_;
  VoiceSettings had_;  // what the server has taken
};

}  // namespace pointalk::linux
