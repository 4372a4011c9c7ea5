// Runs of the program on a simulated machine that fuzz targets set up.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "sim/player.h"
#include "sim/script.h"
#include "sim/script_error.h"
#include "text/text.h"

namespace pointalk::fuzz {

// Bytes as a file's characters.
inline Text AsCharacters(const std::uint8_t* data, std::size_t size) { return Text(data, data + size); }

// A machine past its first start, with a calibration that takes no time to speak of.
inline sim::Script SmallScript() {
  sim::Script script;
  script.machine.spinMicroseconds = 100'000;
  script.machine.files[u"current\\DidWarn.flg"] = u"x";
  return script;
}

inline sim::Step Do(std::string_view name, decltype(sim::Step::action) action) {
  return {name, {}, std::move(action)};
}

// Plays a script to its end; what it says of itself is no concern of a fuzz target.
inline void Play(sim::Script script) {
  try {
    sim::Player(std::move(script)).Play();
  } catch (const sim::ScriptError&) {
  }
}

}  // namespace pointalk::fuzz
