#include "text/letters.h"

#include <algorithm>
#include <iterator>
#include <span>

#include "text/case_table.h"

namespace pointalk {
namespace {

char16_t Mapped(char16_t character, std::span<const CaseRun> runs) {
  const auto after = std::upper_bound(runs.begin(), runs.end(), character,
                                      [](char16_t wanted, const CaseRun& run) { return wanted < run.first; });
  if (after == runs.begin()) return character;
  const CaseRun& run = *std::prev(after);
  if (character > run.last || (character - run.first) % run.step != 0) return character;
  return static_cast<char16_t>(character + run.distance);
}

}  // namespace

char16_t ToUpper(char16_t character) {
  if (character < 0x80) {
    return (character >= u'a' && character <= u'z') ? static_cast<char16_t>(character - 32) : character;
  }
  return Mapped(character, kToUpper);
}

char16_t ToLower(char16_t character) {
  if (character < 0x80) {
    return (character >= u'A' && character <= u'Z') ? static_cast<char16_t>(character + 32) : character;
  }
  return Mapped(character, kToLower);
}

Text ToLower(TextView text) {
  Text lowered(text);
  for (char16_t& character : lowered) character = ToLower(character);
  return lowered;
}

Text ToUpper(TextView text) {
  Text raised(text);
  for (char16_t& character : raised) character = ToUpper(character);
  return raised;
}

bool IsCapital(char16_t character) { return ToLower(character) != character; }

}  // namespace pointalk
