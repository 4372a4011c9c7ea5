#include "sim/remote_memory.h"

namespace pointalk::sim {

void SimRemoteMemory::Free(ProcessId process, RemoteAddress block) {
  // Blocks of a program that has ended stay, although its objects are destroyed here only afterwards.
  if (machine_.programRuns) memory_.Free(process, block);
}

}  // namespace pointalk::sim
