#include "sim/remote_memory.h"

namespace pointalk::sim {

void SimRemoteMemory::Free(ProcessId process, RemoteAddress block) {
  // What a program that is gone owned stays where it was, also when its objects are taken apart here.
  if (machine_.programRuns) memory_.Free(process, block);
}

}  // namespace pointalk::sim
