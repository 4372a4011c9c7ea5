#include "win32/throttling.h"

#include <windows.h>

#include <initializer_list>

#include "win32/late_procedure.h"

namespace pointalk::win32 {

// The first mask is for systems that know both kinds of throttling, the second for older ones.
void OptOutOfThrottling() {
  const auto setInformation =
      LateProcedure<decltype(&SetProcessInformation)>(L"kernel32.dll", "SetProcessInformation");
  if (setInformation == nullptr) return;
  for (const ULONG kinds :
       {ULONG{PROCESS_POWER_THROTTLING_VALID_FLAGS}, ULONG{PROCESS_POWER_THROTTLING_EXECUTION_SPEED}}) {
    PROCESS_POWER_THROTTLING_STATE state{PROCESS_POWER_THROTTLING_CURRENT_VERSION, kinds, 0};
    if (setInformation(GetCurrentProcess(), ProcessPowerThrottling, &state, sizeof state)) return;
  }
}

}  // namespace pointalk::win32
