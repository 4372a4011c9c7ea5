#include "tests/contract/win32/heard_lines.h"

#include <windows.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <system_error>
#include <utility>

#include "tests/contract/win32/patience.h"

namespace pointalk::contract {
namespace {

// The recorders of this process open the file once, so there is one for all tests.
const std::filesystem::path& HeardFile() {
  static const std::filesystem::path path = [] {
    auto fresh = std::filesystem::temp_directory_path() /
                 ("pointalk-contract-" + std::to_string(GetCurrentProcessId()) + ".jsonl");
    SetEnvironmentVariableW(L"POINTALK_HEARD", fresh.c_str());
    return fresh;
  }();
  return path;
}

std::string_view EndOfText(std::string_view quoted) {
  std::size_t end = 1;
  while (end < quoted.size() && quoted[end] != '"') end += quoted[end] == '\\' ? 2 : 1;
  return quoted.substr(0, end + 1);
}

// How a transcript tells of one kind of line: its own words, then fields.
struct Telling {
  std::string_view what;
  std::string_view how;  // the access to a property; empty for a call
  bool whenFailed;
  std::string_view words;
  std::vector<std::string_view> fields;
};

const std::vector<Telling>& Tellings() {
  static const std::vector<Telling> tellings = {
      {"midi open", "", true, "midi open", {"result"}},
      {"midi", "", false, "midi", {"value"}},
      {"midi close", "", false, "midi close", {}},
      {"sound", "", false, "sound", {"name", "module", "flags"}},
      {"sapi5 speak", "", false, "sapi5 speak", {"flags", "text"}},
      {"sapi5 output", "", true, "sapi5 output", {}},
      {"sapi5 output state", "", true, "sapi5 output state", {"state"}},
      {"sapi5 rate", "put", false, "sapi5 rate", {"value"}},
      {"sapi5 volume", "put", false, "sapi5 volume", {"value"}},
      {"sapi5 voice", "putref", false, "sapi5 voice", {"index"}},
      {"sapi4 speak", "", false, "sapi4 speak", {"text"}},
      {"sapi4 audio reset", "", false, "sapi4 reset", {}},
      {"sapi4 find", "", true, "sapi4 find", {"criteria"}},
      {"sapi4 select", "", false, "sapi4 select", {"number"}},
      {"sapi4 speed", "put", false, "sapi4 speed", {"value"}},
      {"sapi4 volume left", "put", false, "sapi4 left", {"value"}},
      {"sapi4 volume right", "put", false, "sapi4 right", {"value"}},
      {"sapi4 last word position", "put", false, "sapi4 position", {"value"}},
  };
  return tellings;
}

std::string_view Unquoted(std::string_view raw) {
  return raw.size() < 2 ? raw : raw.substr(1, raw.size() - 2);
}

bool Failed(std::string_view line) {
  const std::string_view result = RawField(line, "result");
  return !result.empty() && result != "0";
}

// Empty for a line that a transcript does not have.
std::string Told(std::string_view line) {
  const std::string_view what = Unquoted(RawField(line, "what"));
  for (const Telling& telling : Tellings()) {
    if (what != telling.what || Unquoted(RawField(line, "how")) != telling.how) continue;
    if (Failed(line) && !telling.whenFailed) return {};
    std::string told(telling.words);
    for (const std::string_view field : telling.fields) {
      const std::string_view raw = RawField(line, field);
      told.append(" ").append(field == "value" && raw.starts_with('"') ? Unquoted(raw) : raw);
    }
    return told;
  }
  return {};
}

}  // namespace

std::string_view RawField(std::string_view line, std::string_view name) {
  const std::string key = '"' + std::string(name) + "\":";
  const std::size_t at = line.find(key);
  if (at == std::string_view::npos) return {};
  const std::string_view rest = line.substr(at + key.size());
  return rest.starts_with('"') ? EndOfText(rest) : rest.substr(0, rest.find_first_of(",}"));
}

HeardLines::HeardLines() {
  std::error_code missing;
  const auto size = std::filesystem::file_size(HeardFile(), missing);
  begin_ = missing ? 0 : static_cast<std::int64_t>(size);
}

std::vector<std::string> HeardLines::Lines(std::size_t count) const {
  for (const ULONGLONG end = GetTickCount64() + kPatience;; Sleep(10)) {
    std::ifstream file(HeardFile(), std::ios::binary);
    file.seekg(begin_);
    std::vector<std::string> lines;
    for (std::string line; std::getline(file, line);) {
      if (std::string told = Told(line); !told.empty()) lines.push_back(std::move(told));
    }
    if (lines.size() >= count || GetTickCount64() >= end) return lines;
  }
}

}  // namespace pointalk::contract
