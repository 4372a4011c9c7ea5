#include "win32/guarded_buffer.h"

#include <algorithm>

namespace pointalk::win32 {
namespace {

constexpr std::size_t kBytes = GuardedBuffer::kCharacters * sizeof(wchar_t);
constexpr std::size_t kGuardBytes = 64 * 1024;

wchar_t* TakeMemory() {
  void* const reserved = VirtualAlloc(nullptr, kBytes + kGuardBytes, MEM_RESERVE, PAGE_NOACCESS);
  if (reserved == nullptr) return nullptr;
  return static_cast<wchar_t*>(VirtualAlloc(reserved, kBytes, MEM_COMMIT, PAGE_READWRITE));
}

}  // namespace

GuardedBuffer::~GuardedBuffer() {
  if (memory_ != nullptr) VirtualFree(memory_, 0, MEM_RELEASE);
}

wchar_t* GuardedBuffer::Cleared(std::size_t characters) {
  if (memory_ == nullptr) memory_ = TakeMemory();
  if (memory_ != nullptr) std::fill_n(memory_, std::min(characters, kCharacters), L'\0');
  return memory_;
}

}  // namespace pointalk::win32
