// Room for a text whose writer cannot be told how much there is.
#pragma once

#include <windows.h>

#include <cstddef>

namespace pointalk::win32 {

// Far more characters than any text that is asked for, with memory behind them that nobody can write to: a
// program that gives more than it announced spoils nothing of ours.
class GuardedBuffer {
 public:
  static constexpr std::size_t kCharacters = 2 * 1024 * 1024;

  GuardedBuffer() = default;
  ~GuardedBuffer();
  GuardedBuffer(const GuardedBuffer&) = delete;
  GuardedBuffer& operator=(const GuardedBuffer&) = delete;

  // The first characters, made NULs; null when there is no memory. The memory is taken when first asked for.
  wchar_t* Cleared(std::size_t characters);

 private:
  wchar_t* memory_ = nullptr;
};

}  // namespace pointalk::win32
