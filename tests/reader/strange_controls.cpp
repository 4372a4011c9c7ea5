#include "tests/reader/strange_controls.h"

namespace pointalk {

StrangeControls::StrangeControls()
    : Speaking(R"({"windows": [{"id": 2, "class": "Strange", "rect": [0, 0, 400, 400]}]})") {}

StrangeControls::~StrangeControls() = default;

std::string StrangeControls::Heard() {
  const std::string& all = simulated.transcript();
  std::string fresh = all.substr(heard_);
  heard_ = all.size();
  return fresh;
}

std::string StrangeControls::HeardWords() {
  const std::string fresh = Heard();
  const auto last = fresh.rfind("speak 3 \"");
  return last == std::string::npos ? "" : fresh.substr(last + 9, fresh.size() - last - 11);
}

}  // namespace pointalk
