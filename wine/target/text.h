// Texts of the command channel: UTF-8 lines in, words with JSON escapes, JSON lines out.
#pragma once

#include <windows.h>

#include <cstdint>
#include <map>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace pointalk::target {

// A command that cannot be carried out; its text becomes the reply.
class CommandError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

std::wstring FromUtf8(std::string_view text);
std::wstring FromAnsi(std::string_view text);
std::string ToAnsi(std::wstring_view text);

// A JSON string in ASCII: everything beyond is escaped code unit by code unit, so lone surrogates survive.
std::string JsonText(std::wstring_view text);
std::string JsonRect(const RECT& rect);

// Throws CommandError unless the whole text is one number (decimal, or hexadecimal after 0x).
std::int64_t ParseNumber(std::wstring_view text);
// Numbers separated by commas.
std::vector<std::int64_t> ParseNumbers(std::wstring_view text);
RECT ParseRect(std::wstring_view text);

// One line of the channel: words in order, and options of the form key=value. A part in double quotes keeps
// its blanks and takes JSON's escapes.
class CommandLine {
 public:
  explicit CommandLine(std::string_view line);

  std::size_t Count() const { return words_.size(); }
  // Throws CommandError when there is no such word or option.
  const std::wstring& Word(std::size_t index) const;
  const std::wstring& Option(const std::wstring& key) const;

  bool Has(const std::wstring& key) const { return options_.contains(key); }
  std::wstring OptionOr(const std::wstring& key, std::wstring_view otherwise) const;
  std::int64_t NumberOr(const std::wstring& key, std::int64_t otherwise) const;
  // The words from first on.
  std::vector<std::wstring> Rest(std::size_t first) const;

 private:
  std::vector<std::wstring> words_;
  std::map<std::wstring, std::wstring> options_;
};

// Builds one JSON object.
class JsonObject {
 public:
  JsonObject& Text(std::string_view key, std::wstring_view value) { return Raw(key, JsonText(value)); }
  JsonObject& Number(std::string_view key, std::int64_t value) { return Raw(key, std::to_string(value)); }
  JsonObject& Flag(std::string_view key, bool value) { return Raw(key, value ? "true" : "false"); }
  JsonObject& Rect(std::string_view key, const RECT& value) { return Raw(key, JsonRect(value)); }
  JsonObject& Raw(std::string_view key, std::string_view json);
  std::string Line() const { return "{" + members_ + "}"; }

 private:
  std::string members_;
};

// The reply of a command that has no more to tell.
std::string Done();

// JSON texts in brackets.
std::string JsonList(const std::vector<std::string>& parts);

}  // namespace pointalk::target
