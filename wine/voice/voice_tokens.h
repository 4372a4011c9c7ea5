// The newer engine's list of voices and its items.
#pragma once

#include "wine/voice/late_bound.h"

namespace pointalk::wine {

// Count and Item(index); an index outside the list fails.
class VoiceList final : public LateBound {
 public:
  VoiceList();

 protected:
  HRESULT Call(DISPID member, Access access, const Arguments& arguments, VARIANT& result) override;
};

// GetDescription, with or without a locale.
class VoiceToken final : public LateBound {
 public:
  explicit VoiceToken(std::size_t index);

  // Which voice an object stands for; fails, leaving `index`, when it is no token of ours.
  static HRESULT IndexOf(IDispatch& object, std::size_t& index);

 protected:
  HRESULT Call(DISPID member, Access access, const Arguments& arguments, VARIANT& result) override;

 private:
  std::size_t index_;
};

}  // namespace pointalk::wine
