#include "wine/target/text.h"

#include <algorithm>
#include <cwchar>

namespace pointalk::target {
namespace {

std::wstring Decode(UINT codePage, std::string_view text) {
  const int size = static_cast<int>(text.size());
  const int needed = MultiByteToWideChar(codePage, 0, text.data(), size, nullptr, 0);
  std::wstring result(static_cast<std::size_t>(needed), L'\0');
  MultiByteToWideChar(codePage, 0, text.data(), size, result.data(), needed);
  return result;
}

// Reads the escape after a backslash; index stands on the character after it and is left on the escape's last
// one.
wchar_t Unescape(std::wstring_view text, std::size_t& index) {
  switch (text[index]) {
    case L'n': return L'\n';
    case L'r': return L'\r';
    case L't': return L'\t';
    case L'b': return L'\b';
    case L'f': return L'\f';
    case L'u': {
      if (index + 4 >= text.size()) throw CommandError("short \\u escape");
      const auto unit = ParseNumber(L"0x" + std::wstring(text.substr(index + 1, 4)));
      index += 4;
      return static_cast<wchar_t>(unit);
    }
    default: return text[index];
  }
}

}  // namespace

std::wstring FromUtf8(std::string_view text) { return Decode(CP_UTF8, text); }
std::wstring FromAnsi(std::string_view text) { return Decode(CP_ACP, text); }

std::string ToAnsi(std::wstring_view text) {
  const int size = static_cast<int>(text.size());
  const int needed = WideCharToMultiByte(CP_ACP, 0, text.data(), size, nullptr, 0, nullptr, nullptr);
  std::string result(static_cast<std::size_t>(needed), '\0');
  WideCharToMultiByte(CP_ACP, 0, text.data(), size, result.data(), needed, nullptr, nullptr);
  return result;
}

std::string JsonText(std::wstring_view text) {
  static constexpr char kDigits[] = "0123456789abcdef";
  std::string result = "\"";
  for (const wchar_t unit : text) {
    if (unit == L'"' || unit == L'\\') {
      result += '\\';
      result += static_cast<char>(unit);
    } else if (unit >= 32 && unit < 127) {
      result += static_cast<char>(unit);
    } else {
      result += "\\u";
      for (int shift = 12; shift >= 0; shift -= 4) result += kDigits[(unit >> shift) & 15];
    }
  }
  return result + '"';
}

std::string JsonRect(const RECT& rect) {
  return "[" + std::to_string(rect.left) + "," + std::to_string(rect.top) + "," + std::to_string(rect.right) +
         "," + std::to_string(rect.bottom) + "]";
}

std::string Done() { return JsonObject().Flag("ok", true).Line(); }

std::string JsonList(const std::vector<std::string>& parts) {
  std::string list;
  for (const std::string& part : parts) list += (list.empty() ? "" : ",") + part;
  return "[" + list + "]";
}

std::int64_t ParseNumber(std::wstring_view text) {
  const std::wstring copy(text);
  const bool hexadecimal = copy.starts_with(L"0x");
  wchar_t* end = nullptr;
  const std::int64_t number = hexadecimal ? static_cast<std::int64_t>(std::wcstoull(copy.c_str(), &end, 16))
                                          : std::wcstoll(copy.c_str(), &end, 10);
  if (copy.empty() || end != copy.c_str() + copy.size())
    throw CommandError("not a number: " + JsonText(text));
  return number;
}

std::vector<std::int64_t> ParseNumbers(std::wstring_view text) {
  std::vector<std::int64_t> numbers;
  for (std::size_t begin = 0; begin <= text.size();) {
    const std::size_t end = std::min(text.find(L',', begin), text.size());
    numbers.push_back(ParseNumber(text.substr(begin, end - begin)));
    begin = end + 1;
  }
  return numbers;
}

RECT ParseRect(std::wstring_view text) {
  const auto sides = ParseNumbers(text);
  if (sides.size() != 4) throw CommandError("a rectangle has four numbers: " + JsonText(text));
  return {static_cast<LONG>(sides[0]), static_cast<LONG>(sides[1]), static_cast<LONG>(sides[2]),
          static_cast<LONG>(sides[3])};
}

CommandLine::CommandLine(std::string_view line) {
  const std::wstring text = FromUtf8(line);
  const auto blank = [](wchar_t unit) { return unit == L' ' || unit == L'\r' || unit == L'\n'; };
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (blank(text[i])) continue;
    std::wstring key;
    std::wstring word;
    bool quoted = false;
    bool isOption = false;
    for (; i < text.size() && (quoted || !blank(text[i])); ++i) {
      if (text[i] == L'"') {
        quoted = !quoted;
      } else if (quoted && text[i] == L'\\' && i + 1 < text.size()) {
        word += Unescape(text, ++i);
      } else if (!quoted && !isOption && text[i] == L'=') {
        isOption = true;
        key.swap(word);
      } else {
        word += text[i];
      }
    }
    if (quoted) throw CommandError("a quote is not closed");
    if (isOption)
      options_[key] = word;
    else
      words_.push_back(word);
  }
}

const std::wstring& CommandLine::Word(std::size_t index) const {
  if (index >= words_.size()) throw CommandError("the command lacks word " + std::to_string(index));
  return words_[index];
}

const std::wstring& CommandLine::Option(const std::wstring& key) const {
  const auto found = options_.find(key);
  if (found == options_.end()) throw CommandError("the command lacks " + JsonText(key));
  return found->second;
}

std::wstring CommandLine::OptionOr(const std::wstring& key, std::wstring_view otherwise) const {
  const auto found = options_.find(key);
  return found == options_.end() ? std::wstring(otherwise) : found->second;
}

std::int64_t CommandLine::NumberOr(const std::wstring& key, std::int64_t otherwise) const {
  const auto found = options_.find(key);
  return found == options_.end() ? otherwise : ParseNumber(found->second);
}

std::vector<std::wstring> CommandLine::Rest(std::size_t first) const {
  if (first >= words_.size()) return {};
  return {words_.begin() + static_cast<std::ptrdiff_t>(first), words_.end()};
}

JsonObject& JsonObject::Raw(std::string_view key, std::string_view json) {
  if (!members_.empty()) members_ += ',';
  members_ += JsonText(FromUtf8(key));
  members_ += ':';
  members_ += json;
  return *this;
}

}  // namespace pointalk::target
