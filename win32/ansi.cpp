#include "win32/ansi.h"

#include <windows.h>

#include <limits>

#include "win32/wide_text.h"

namespace pointalk::win32 {
namespace {

constexpr std::size_t kLongest = std::numeric_limits<int>::max() / 4;

// Gives the number of bytes, and writes them where the capacity is not 0. A code page that has every
// character takes neither the flag nor the question mark, and has no need of them.
int Convert(const std::wstring& wide, char* bytes, int capacity) {
  const int units = static_cast<int>(wide.size());
  const int size =
      WideCharToMultiByte(CP_ACP, WC_NO_BEST_FIT_CHARS, wide.data(), units, bytes, capacity, "?", nullptr);
  if (size != 0) return size;
  return WideCharToMultiByte(CP_ACP, 0, wide.data(), units, bytes, capacity, nullptr, nullptr);
}

}  // namespace

std::string Narrow(TextView text) {
  if (text.empty() || text.size() > kLongest) return {};
  const std::wstring wide = Wide(text);
  const int size = Convert(wide, nullptr, 0);
  std::string bytes(static_cast<std::size_t>(size), '\0');
  Convert(wide, bytes.data(), size);
  return bytes;
}

Text Widen(std::string_view bytes) {
  if (bytes.empty() || bytes.size() > kLongest) return {};
  const int size = static_cast<int>(bytes.size());
  const int units = MultiByteToWideChar(CP_ACP, 0, bytes.data(), size, nullptr, 0);
  std::wstring wide(static_cast<std::size_t>(units), L'\0');
  MultiByteToWideChar(CP_ACP, 0, bytes.data(), size, wide.data(), units);
  return FromWide(wide);
}

Text ThroughAnsi(TextView text) { return Widen(Narrow(text)); }

Text WinAnsi::ToText(std::span<const std::byte> bytes) {
  return Widen({reinterpret_cast<const char*>(bytes.data()), bytes.size()});
}

std::vector<std::byte> WinAnsi::ToBytes(TextView text) {
  const std::string bytes = Narrow(text);
  const auto* const first = reinterpret_cast<const std::byte*>(bytes.data());
  return {first, first + bytes.size()};
}

}  // namespace pointalk::win32
