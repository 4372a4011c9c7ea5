#include "wine/voice/wave.h"

#include <windows.h>

#include <algorithm>

namespace pointalk::wine {

namespace {

// Little-endian; 0 past the end.
std::uint32_t Word32(std::string_view bytes, std::size_t at) {
  std::uint32_t value = 0;
  for (std::size_t i = 0; i < 4 && at + i < bytes.size(); ++i)
    value |= std::uint32_t{static_cast<unsigned char>(bytes[at + i])} << (8 * i);
  return value;
}

}  // namespace

std::int64_t WaveLength(std::string_view head, std::int64_t fileBytes) {
  if (head.size() < 12 || head.substr(0, 4) != "RIFF" || head.substr(8, 4) != "WAVE") return 0;
  std::int64_t bytesPerSecond = 0;
  for (std::size_t at = 12; at + 8 <= head.size();) {
    const std::string_view chunk = head.substr(at, 4);
    const std::int64_t size = Word32(head, at + 4);
    if (chunk == "fmt ") bytesPerSecond = Word32(head, at + 16);
    if (chunk == "data") {
      if (bytesPerSecond == 0) return 0;
      const std::int64_t rest = fileBytes - static_cast<std::int64_t>(at) - 8;
      return std::max<std::int64_t>(0, std::min(size, rest)) * 1'000'000 / bytesPerSecond;
    }
    at += static_cast<std::size_t>(8 + size + size % 2);
  }
  return 0;
}

std::int64_t WaveFileLength(const std::wstring& path) {
  const HANDLE file =
      CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                  OPEN_EXISTING, 0, nullptr);
  if (file == INVALID_HANDLE_VALUE) return 0;
  char head[512];
  DWORD count = 0;
  LARGE_INTEGER size{};
  const bool read = ReadFile(file, head, sizeof head, &count, nullptr) && GetFileSizeEx(file, &size);
  CloseHandle(file);
  return read ? WaveLength({head, count}, size.QuadPart) : 0;
}

}  // namespace pointalk::wine
