#include "win32/lent_blocks.h"

#include <algorithm>
#include <new>
#include <utility>

namespace pointalk::win32 {
namespace {

constexpr UINT kLookInterval = 1000;  // milliseconds
constexpr std::ptrdiff_t kMostOfProcess = 32;
constexpr std::ptrdiff_t kMostAtOnce = 2;  // blocks that one message is given

// Milliseconds between the thread's answer and the end of a block. A thread may look at its messages while it
// is still at work with one.
constexpr ULONGLONG kForGoodMeasure = 5000;

}  // namespace

LentBlocks::~LentBlocks() {
  if (!lent_.empty()) KillTimer(form_, reinterpret_cast<UINT_PTR>(this));
}

bool LentBlocks::IsFull(DWORD process) const {
  return std::count_if(lent_.begin(), lent_.end(), [process](const Lent& lent) {
           return GetProcessId(lent.process.get()) == process;
         }) > kMostOfProcess - kMostAtOnce;
}

void LentBlocks::Take(std::shared_ptr<void> process, void* block, std::shared_ptr<Probe> probe) noexcept {
  try {
    lent_.push_back({std::move(process), block, std::move(probe), 0});
  } catch (const std::bad_alloc&) {
    return;
  }
  if (lent_.size() == 1) SetTimer(form_, reinterpret_cast<UINT_PTR>(this), kLookInterval, &OnTimer);
}

void CALLBACK LentBlocks::OnTimer(HWND, UINT, UINT_PTR blocks, DWORD) {
  reinterpret_cast<LentBlocks*>(blocks)->Look();
}

// True once the block is gone.
bool LentBlocks::IsDone(Lent& lent) {
  if (WaitForSingleObject(lent.process.get(), 0) == WAIT_OBJECT_0) return true;
  if (!lent.probe->IsOver()) return false;
  const ULONGLONG now = GetTickCount64();
  if (lent.over == 0) lent.over = now;
  if (now < lent.over + kForGoodMeasure) return false;
  VirtualFreeEx(lent.process.get(), lent.block, 0, MEM_RELEASE);
  return true;
}

void LentBlocks::Look() {
  unresponsiveThreads_.Refresh();
  std::erase_if(lent_, &IsDone);
  if (lent_.empty()) KillTimer(form_, reinterpret_cast<UINT_PTR>(this));
}

}  // namespace pointalk::win32
