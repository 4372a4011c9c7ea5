// Any text rewritten for the ear, as text, as class name and as clock.
#include <cstdint>
#include <cstdlib>
#include <cstring>

#include "speech/phonetics.h"
#include "text/numbers.h"
#include "text/text.h"

using namespace pointalk;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Text text(size / 2, u'\0');
  std::memcpy(text.data(), data, text.size() * 2);
  const bool spelling = size % 2 == 1;
  Pronounced(text, spelling);
  WithDesktopNames(WithoutClutter(Pronounced(WithSplitMarks(text), spelling)));
  if (!SpokenClock(text).starts_with(u"System Clock, ")) std::abort();
  // A number that is written is read back as what was written.
  const double number = ReadNumber(text);
  const Text written = NumberText(number);
  if (NumberText(ReadNumber(written)) != written) std::abort();
  return 0;
}
