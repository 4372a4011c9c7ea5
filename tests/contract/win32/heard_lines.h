// What the recording voice and the recording synthesizer write down, in the words of a rehearsal's
// transcript.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace pointalk::contract {

// The value of a field of a line of JSON as it stands there; empty when there is none.
std::string_view RawField(std::string_view line, std::string_view name);

class HeardLines {
 public:
  // What is written down from now on.
  HeardLines();

  // Once there are so many lines; those that there are if no more come for very long. A call that failed is
  // none, except those that a transcript tells of whatever they give.
  std::vector<std::string> Lines(std::size_t count) const;

 private:
  std::int64_t begin_;  // in the file
};

}  // namespace pointalk::contract
