// A buffer for a text whose writer cannot be told its size.
#pragma once

#include <windows.h>

#include <cstddef>

namespace pointalk::win32 {

// Far more characters than any text that is asked for, with inaccessible memory behind them, so that a
// program that gives more than it announced overwrites nothing of ours.
class GuardedBuffer {
 public:
  static constexpr std::size_t kCharacters = 2 * 1024 * 1024;

  GuardedBuffer() = default;
  ~GuardedBuffer();
  GuardedBuffer(const GuardedBuffer&) = delete;
  GuardedBuffer& operator=(const GuardedBuffer&) = delete;

  // The buffer with that many NULs at its beginning; null when there is no memory, which is allocated by the
  // first call.
  wchar_t* Cleared(std::size_t characters);

 private:
  wchar_t* memory_ = nullptr;
};

}  // namespace pointalk::win32
