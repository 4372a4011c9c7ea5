// From the text of a script to its transcript.
#pragma once

#include <iosfwd>
#include <string>
#include <string_view>

namespace pointalk::sim {

struct Rehearsed {
  bool valid = false;
  std::string
      text;  // the transcript, or for a script that is not valid one line that says why, without its end
};

Rehearsed Rehearse(std::string_view script);

// Plays one script a line; after each transcript comes a line that holds only "==". The transcript of a
// script that is not valid is "! " and the line that says why.
void RehearseLines(std::istream& scripts, std::ostream& transcripts);

}  // namespace pointalk::sim
