#include "wine/heard/heard.h"

#include <windows.h>

#include <cmath>
#include <cstdio>

#include "wine/heard/utf8.h"

namespace pointalk::wine {

namespace {

constexpr DWORD kLongestPath = 4096;

HANDLE OpenHeardFile() {
  const auto path = PathFromEnvironment(L"POINTALK_HEARD");
  if (!path) return INVALID_HANDLE_VALUE;
  return CreateFileW(path->c_str(), FILE_APPEND_DATA, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                     nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
}

// Locks the file for as long as it lives: under Wine, appending first looks for the end and then writes, and
// two writers may find the same end. The byte that is locked lies far beyond any line.
class FileLock {
 public:
  explicit FileLock(HANDLE file) : file_(file) {
    LockFileEx(file_, LOCKFILE_EXCLUSIVE_LOCK, 0, 1, 0, &byte_);
  }
  ~FileLock() { UnlockFileEx(file_, 0, 1, 0, &byte_); }
  FileLock(const FileLock&) = delete;
  FileLock& operator=(const FileLock&) = delete;

 private:
  static OVERLAPPED FarByte() {
    OVERLAPPED byte{};
    byte.OffsetHigh = 0x1000;
    return byte;
  }

  HANDLE file_;
  OVERLAPPED byte_ = FarByte();
};

void AppendEscape(std::string& line, char16_t unit) {
  char escape[8];
  std::snprintf(escape, sizeof escape, "\\u%04x", static_cast<unsigned>(unit));
  line += escape;
}

// A surrogate without its partner has no UTF-8; JSON can still carry it, as an escape.
void AppendQuoted(std::string& line, std::u16string_view text) {
  line += '"';
  for (std::size_t i = 0; i < text.size();) {
    const CodePoint point = CodePointAt(text, i);
    if (point.value == u'"' || point.value == u'\\') {
      line += '\\';
      line += static_cast<char>(point.value);
    } else if (point.value < 0x20 || point.value == 0x7F || IsSurrogate(point.value)) {
      AppendEscape(line, text[i]);
    } else {
      AppendUtf8(line, point.value);
    }
    i += point.units;
  }
  line += '"';
}

}  // namespace

HeardLine::HeardLine(std::string_view what) : line_("{\"t\":" + std::to_string(Now())) {
  Ascii("what", what);
}

HeardLine& HeardLine::Number(std::string_view name, std::int64_t value) {
  Name(name);
  line_ += std::to_string(value);
  return *this;
}

HeardLine& HeardLine::Real(std::string_view name, double value) {
  if (!std::isfinite(value)) return Null(name);
  char digits[32];
  std::snprintf(digits, sizeof digits, "%.15g", value);
  Name(name);
  line_ += digits;
  return *this;
}

HeardLine& HeardLine::Flag(std::string_view name, bool value) {
  Name(name);
  line_ += value ? "true" : "false";
  return *this;
}

HeardLine& HeardLine::Null(std::string_view name) {
  Name(name);
  line_ += "null";
  return *this;
}

HeardLine& HeardLine::Hex(std::string_view name, std::uint32_t value) {
  char digits[16];
  std::snprintf(digits, sizeof digits, "0x%lx", static_cast<unsigned long>(value));
  return Ascii(name, digits);
}

HeardLine& HeardLine::Text(std::string_view name, std::u16string_view value) {
  Name(name);
  AppendQuoted(line_, value);
  return *this;
}

HeardLine& HeardLine::Ascii(std::string_view name, std::string_view value) {
  return Text(name, std::u16string(value.begin(), value.end()));
}

void HeardLine::Name(std::string_view name) {
  line_ += ",\"";
  line_ += name;
  line_ += "\":";
}

void HeardLine::Write() {
  static const HANDLE file = OpenHeardFile();
  if (file == INVALID_HANDLE_VALUE) return;
  line_ += "}\n";
  const FileLock lock(file);
  DWORD written = 0;
  WriteFile(file, line_.data(), static_cast<DWORD>(line_.size()), &written, nullptr);
}

std::int64_t Now() {
  LARGE_INTEGER count, perSecond;
  QueryPerformanceCounter(&count);
  QueryPerformanceFrequency(&perSecond);
  const std::int64_t seconds = count.QuadPart / perSecond.QuadPart;
  const std::int64_t rest = count.QuadPart % perSecond.QuadPart;
  return seconds * 1'000'000 + rest * 1'000'000 / perSecond.QuadPart;
}

std::optional<std::wstring> PathFromEnvironment(const wchar_t* variable) {
  wchar_t value[kLongestPath];
  const DWORD length = GetEnvironmentVariableW(variable, value, kLongestPath);
  if (length == 0 || length >= kLongestPath) return std::nullopt;
  const std::wstring path(value, length);
  return path.front() == L'/' ? L"Z:" + path : path;
}

}  // namespace pointalk::wine
