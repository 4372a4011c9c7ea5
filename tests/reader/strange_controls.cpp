#include "tests/reader/strange_controls.h"

namespace pointalk {

StrangeControls::StrangeControls() {
  EXPECT_TRUE(simulated.platform.sapi5.Create());
  engine.SetVoice(Engine::Object::kSapi5);
  settings.mSapiVersion = 5;
  description.mOfficialClassName = u"Strange";
}

StrangeControls::~StrangeControls() = default;

std::string StrangeControls::Heard() {
  const std::string& all = simulated.transcript();
  std::string fresh = all.substr(heard);
  heard = all.size();
  return fresh;
}

std::string StrangeControls::HeardWords() {
  const std::string fresh = Heard();
  const auto last = fresh.rfind("speak 3 \"");
  return last == std::string::npos ? "" : fresh.substr(last + 9, fresh.size() - last - 11);
}

}  // namespace pointalk
