// A script's JSON as it was written: the order of keys and the spelling of numbers are kept, for the echo of
// a step.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace pointalk::sim {

struct Json {
  enum class Kind { kNull, kBoolean, kNumber, kText, kList, kObject };

  Kind kind = Kind::kNull;
  bool boolean = false;
  double number = 0;
  std::string text;               // a text in UTF-8, or a number as the script writes it
  std::vector<std::string> keys;  // an object's, in the script's order
  std::vector<Json> values;       // a list's items, or an object's values in the order of its keys
};

// Throws ScriptError for anything but one JSON value in UTF-8, without a byte order mark.
Json ParseJson(std::string_view source);

// Without blanks outside texts.
void AppendCompact(const Json& json, std::string& out);

}  // namespace pointalk::sim
