#include "wine/target/channel.h"

namespace pointalk::target {

bool ReadLine(std::string& line) {
  line.clear();
  for (int character = std::getchar(); character != EOF; character = std::getchar()) {
    if (character == '\n') return true;
    line += static_cast<char>(character);
  }
  return !line.empty();
}

void WriteLine(std::FILE* out, const std::string& line) {
  std::fprintf(out, "%s\n", line.c_str());
  std::fflush(out);
}

}  // namespace pointalk::target
