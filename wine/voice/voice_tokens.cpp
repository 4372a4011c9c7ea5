#include "wine/voice/voice_tokens.h"

#include "wine/heard/heard.h"
#include "wine/voice/voices.h"

namespace pointalk::wine {

namespace {

enum : DISPID { kCount = 1, kItem, kGetDescription };

// Only IndexOf asks for it, and only a token of this library answers.
constexpr IID kTokenInterface = {
    0x6B0F2C71, 0x5C3E, 0x4D0A, {0x8F, 0x21, 0x94, 0x0B, 0x7E, 0x55, 0x13, 0xC8}};
constexpr IID kListInterface = {0x6B0F2C72, 0x5C3E, 0x4D0A, {0x8F, 0x21, 0x94, 0x0B, 0x7E, 0x55, 0x13, 0xC8}};

const std::vector<Member>& ListMembers() {
  static const auto& members = *new std::vector<Member>{{L"Count", kCount}, {L"Item", kItem}};
  return members;
}

const std::vector<Member>& TokenMembers() {
  static const auto& members = *new std::vector<Member>{{L"GetDescription", kGetDescription}};
  return members;
}

}  // namespace

VoiceList::VoiceList() : LateBound(ListMembers(), kListInterface) {}

HRESULT VoiceList::Call(DISPID member, Access access, const Arguments& arguments, VARIANT& result) {
  if (access != Access::kGetOrCall) return DISP_E_MEMBERNOTFOUND;
  if (member == kCount) {
    HeardLine("sapi5 voice count").Write();
    SetWhole(result, static_cast<LONG>(kVoices.size()));
    return S_OK;
  }
  if (member != kItem) return DISP_E_MEMBERNOTFOUND;
  LONG index = -1;
  HRESULT outcome = arguments.Whole(0, index);
  if (SUCCEEDED(outcome) && (index < 0 || index >= static_cast<LONG>(kVoices.size()))) outcome = E_INVALIDARG;
  HeardLine("sapi5 voice item").Number("index", index).Number("result", outcome).Write();
  if (SUCCEEDED(outcome)) SetObject(result, new VoiceToken(static_cast<std::size_t>(index)));
  return outcome;
}

VoiceToken::VoiceToken(std::size_t index) : LateBound(TokenMembers(), kTokenInterface), index_(index) {}

HRESULT VoiceToken::IndexOf(IDispatch& object, std::size_t& index) {
  void* token = nullptr;
  if (FAILED(object.QueryInterface(kTokenInterface, &token))) return E_INVALIDARG;
  auto* const ours = static_cast<VoiceToken*>(static_cast<IDispatch*>(token));
  index = ours->index_;
  ours->Release();
  return S_OK;
}

HRESULT VoiceToken::Call(DISPID member, Access access, const Arguments&, VARIANT& result) {
  if (access != Access::kGetOrCall || member != kGetDescription) return DISP_E_MEMBERNOTFOUND;
  HeardLine("sapi5 voice description").Number("index", static_cast<LONG>(index_)).Write();
  const std::u16string_view description = kVoices[index_].description;
  const std::wstring units(description.begin(), description.end());
  result.vt = VT_BSTR;
  result.bstrVal = SysAllocStringLen(units.data(), static_cast<UINT>(units.size()));
  return result.bstrVal ? S_OK : E_OUTOFMEMORY;
}

}  // namespace pointalk::wine
