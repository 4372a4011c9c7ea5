#include "sim/rehearse.h"

#include <istream>
#include <ostream>

#include "sim/player.h"
#include "sim/script.h"
#include "sim/script_error.h"

namespace pointalk::sim {

Rehearsed Rehearse(std::string_view script) {
  try {
    return {true, Player(ReadScript(script)).Play()};
  } catch (const ScriptError& error) {
    return {false, error.message};
  }
}

void RehearseLines(std::istream& scripts, std::ostream& transcripts) {
  for (std::string line; std::getline(scripts, line);) {
    const Rehearsed rehearsed = Rehearse(line);
    if (rehearsed.valid) {
      transcripts << rehearsed.text;
    } else {
      transcripts << "! " << rehearsed.text << '\n';
    }
    transcripts << "==\n"
                << std::flush;  // whoever waits for this transcript before sending the next script gets it
  }
}

}  // namespace pointalk::sim
