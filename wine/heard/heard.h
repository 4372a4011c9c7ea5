// What the companions were asked, written down as it happens.
//
// Where the environment variable POINTALK_HEARD names a file, every call on the voice and on the synthesizer
// becomes one line of JSON at its end: {"t":12345678,"what":"midi","value":"0x513b9e","result":0}. Both
// libraries, and any number of processes, append to the same file; a line is one write and is never mixed
// with another. Without the variable nothing is written.
//
// "t" is in microseconds of the one clock of the machine that QueryPerformanceCounter reads; Wine takes it
// from Linux's CLOCK_MONOTONIC_RAW, so programs on the Linux side can put their own times beside it. It is
// the time at which the call came in; threads write on their own, so that a reader who needs the order sorts
// by it.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace pointalk::wine {

// One line; takes its time when it is made. Names are plain ASCII and in the order in which they are added.
class HeardLine {
 public:
  explicit HeardLine(std::string_view what);

  HeardLine& Number(std::string_view name, std::int64_t value);
  HeardLine& Real(std::string_view name, double value);
  HeardLine& Flag(std::string_view name, bool value);
  HeardLine& Null(std::string_view name);
  // A text of "0x" and lower-case digits without leading zeros.
  HeardLine& Hex(std::string_view name, std::uint32_t value);
  HeardLine& Text(std::string_view name, std::u16string_view value);
  HeardLine& Ascii(std::string_view name, std::string_view value);

  void Write();

 private:
  void Name(std::string_view name);

  std::string line_;
};

// Microseconds of the clock above.
std::int64_t Now();

// The file or folder that an environment variable names, as a Windows path. A Linux path (it begins with "/")
// is taken as such. No value when the variable is not set or empty.
std::optional<std::wstring> PathFromEnvironment(const wchar_t* variable);

}  // namespace pointalk::wine
