// Sees to it that the program runs once on a desktop.
#pragma once

#include <functional>
#include <memory>

namespace pointalk::linux {

class SingleStart {
 public:
  // Takes the desktop's place for this program, or tells who has it to bring its panel up.
  SingleStart();
  ~SingleStart();
  SingleStart(const SingleStart&) = delete;
  SingleStart& operator=(const SingleStart&) = delete;

  bool IsFirst() const { return isFirst_; }

  // Calls back, on the form's thread, whenever another start tells.
  void Serve(std::function<void()> onOtherStart);

 private:
  struct Place;

  std::unique_ptr<Place> place_;
  bool isFirst_ = true;
};

}  // namespace pointalk::linux
