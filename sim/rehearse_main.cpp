// pointalk-rehearse: prints the transcripts of rehearsals.
#include <fstream>
#include <iostream>
#include <sstream>
#include <string>
#include <string_view>

#include "sim/rehearse.h"

namespace {

constexpr int kNotWritten = 1;
constexpr int kBadScript = 2;

int Refuse(std::string_view why) {
  std::cerr << why << '\n';
  return kBadScript;
}

int PlayOne(std::istream& in) {
  std::ostringstream script;
  script << in.rdbuf();
  const pointalk::sim::Rehearsed rehearsed = pointalk::sim::Rehearse(script.str());
  if (!rehearsed.valid) return Refuse(rehearsed.text);
  return std::cout << rehearsed.text << std::flush ? 0 : kNotWritten;
}

int PlayLines() {
  pointalk::sim::RehearseLines(std::cin, std::cout);
  return std::cout ? 0 : kNotWritten;
}

}  // namespace

int main(int argc, char** argv) {
  std::ios::sync_with_stdio(false);
  const std::string argument = argc == 2 ? argv[1] : "";
  if (argument.empty()) return Refuse("usage: pointalk-rehearse FILE.json | - | --lines");
  if (argument == "--lines") return PlayLines();
  if (argument == "-") return PlayOne(std::cin);
  std::ifstream file(argument, std::ios::binary);
  return file ? PlayOne(file) : Refuse(argument + ": cannot be read");
}
