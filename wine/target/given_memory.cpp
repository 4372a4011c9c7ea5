#include "wine/target/given_memory.h"

#include <commctrl.h>

namespace pointalk::target {
namespace {

constexpr UINT kDiedOfIt = 4;

// A handler is called with no argument that tells for whom.
thread_local bool inUse = false;

bool HandsMemoryOver(UINT message) {
  return message == LVM_SUBITEMHITTEST || message == LVM_HITTEST || message == LVM_GETITEMA ||
         message == LVM_GETITEMW || message == EM_CHARFROMPOS;
}

// Controls also try out addresses that they then do without; those are not free memory.
LONG CALLBACK OnException(EXCEPTION_POINTERS* exception) {
  const EXCEPTION_RECORD& record = *exception->ExceptionRecord;
  if (!inUse || record.ExceptionCode != EXCEPTION_ACCESS_VIOLATION) return EXCEPTION_CONTINUE_SEARCH;
  MEMORY_BASIC_INFORMATION region{};
  VirtualQuery(reinterpret_cast<void*>(record.ExceptionInformation[1]), &region, sizeof region);
  if (region.State == MEM_FREE) TerminateProcess(GetCurrentProcess(), kDiedOfIt);
  return EXCEPTION_CONTINUE_SEARCH;
}

}  // namespace

UseOfGivenMemory::UseOfGivenMemory(UINT message) { inUse = HandsMemoryOver(message); }
UseOfGivenMemory::~UseOfGivenMemory() { inUse = false; }

void WatchGivenMemory() { AddVectoredExceptionHandler(1, &OnException); }

}  // namespace pointalk::target
