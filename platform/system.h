// Seam: what the program asks of the system as a whole.
#pragma once

#include <cstdint>
#include <optional>

#include "text/text.h"

namespace pointalk {

struct SystemVersion {
  std::uint32_t platform = 0;  // 1 is the Windows 95 family
  std::uint32_t major = 0;
  std::uint32_t minor = 0;
};

class System {
 public:
  virtual ~System() = default;

  virtual std::optional<SystemVersion> Version() = 0;

  // The program's folder, without a backslash at its end.
  virtual Text ProgramFolder() = 0;

  // The 8.3 name of a path, at most capacity characters of it; empty on failure.
  virtual Text ShortPath(TextView path, int capacity) = 0;

  // Empties the clipboard and puts a text on it.
  [[nodiscard]] virtual bool SetClipboard(TextView text) = 0;

  // Has the shell carry out an operation on a file, with the panel as owner.
  [[nodiscard]] virtual bool ShellOpen(TextView operation, TextView file, TextView parameters,
                                       TextView directory, int show) = 0;

  // Ends the process at once and does not return. A simulated machine throws here, and where a question is
  // never answered: an object that is no std::exception, so that no handler in the program catches it.
  [[noreturn]] virtual void EndProgram() = 0;
};

}  // namespace pointalk
