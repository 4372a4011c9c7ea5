// The lines of SSIP, the protocol of speech-dispatcher.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "text/text.h"

namespace pointalk::linux {

// A text as one line of SSIP: without control characters, and with a second dot where it begins with one.
// Empty where there is nothing in it to be said.
std::string SsipText(TextView text);

// The command that says such a line.
std::string SpeakCommand(std::string_view line);

// Answers of SSIP from the first of these numbers on are errors, from the second on events.
constexpr int kFirstError = 300;
constexpr int kFirstEvent = 700;

// A line that the server sent: the number that it begins with, and what follows.
struct SsipLine {
  int code = 0;
  bool isLast = false;  // of its answer
  std::string text;
};
std::optional<SsipLine> ParseSsipLine(std::string_view line);

// Cuts what comes in into lines. A line that does not end is given up.
class SsipLines {
 public:
  void Add(std::string_view bytes);
  std::optional<SsipLine> Next();

 private:
  std::string bytes_;
  std::size_t next_ = 0;    // where the line after the last one begins
  bool isGivenUp_ = false;  // the line that goes on
};

// A voice of the synthesizer that a line of the list names; no value for a variant of one.
struct NamedSsipVoice {
  std::string name;
  std::string language;
};
std::optional<NamedSsipVoice> ParseSsipVoice(std::string_view text);

// Whether a voice of that language is one for the user, whose language is given as the environment has it.
bool IsForUser(std::string_view voiceLanguage, std::string_view userLanguage);

}  // namespace pointalk::linux
