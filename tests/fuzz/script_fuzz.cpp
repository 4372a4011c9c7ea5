// Any bytes as a rehearsal's script. Scripts that would only take long are left out.
#include <cstdint>
#include <string_view>

#include "sim/rehearse.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view script(reinterpret_cast<const char*>(data), size);
  int digits = 0;
  for (const char character : script) {
    digits = character >= '0' && character <= '9' ? digits + 1 : 0;
    if (digits > 5) return 0;
  }
  pointalk::sim::Rehearse(script);
  return 0;
}
