#include "win32/late_bound.h"

#include <algorithm>

namespace pointalk::win32 {

std::optional<LateBound> LateBound::Create(const CLSID& classId) {
  void* object = nullptr;
  const HRESULT outcome =
      CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER | CLSCTX_LOCAL_SERVER, IID_IDispatch, &object);
  if (FAILED(outcome) || object == nullptr) return std::nullopt;
  return LateBound(ComPointer<IDispatch>(static_cast<IDispatch*>(object)));
}

std::optional<DISPID> LateBound::IdOf(const wchar_t* member) {
  const auto known = std::find_if(members_.begin(), members_.end(),
                                  [member](const Member& candidate) { return candidate.name == member; });
  if (known != members_.end()) return known->id;
  std::wstring name = member;
  LPOLESTR names[] = {name.data()};
  DISPID id = DISPID_UNKNOWN;
  if (FAILED(object_->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id))) return std::nullopt;
  members_.push_back({member, id});
  return id;
}

bool LateBound::Invoke(const wchar_t* member, WORD kind, Arguments arguments, VARIANT* result) {
  if (!object_) return false;
  const auto id = IdOf(member);
  if (!id) return false;
  std::vector<VARIANT> reversed(std::rbegin(arguments), std::rend(arguments));
  const bool puts = (kind & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
  DISPID newValue = DISPID_PROPERTYPUT;
  DISPPARAMS parameters{reversed.data(), puts ? &newValue : nullptr, static_cast<UINT>(reversed.size()),
                        puts ? 1U : 0U};
  return SUCCEEDED(
      object_->Invoke(*id, IID_NULL, LOCALE_USER_DEFAULT, kind, &parameters, result, nullptr, nullptr));
}

bool LateBound::Call(const wchar_t* member, Arguments arguments) {
  return Invoke(member, DISPATCH_METHOD, arguments, nullptr);
}

// Whether it is a property or a method that gives a value is the object's own affair.
std::optional<Variant> LateBound::Get(const wchar_t* member, Arguments arguments) {
  Variant result;
  if (!Invoke(member, DISPATCH_METHOD | DISPATCH_PROPERTYGET, arguments, result.Fill())) return std::nullopt;
  return result;
}

std::optional<LateBound> LateBound::Fetch(const wchar_t* member, Arguments arguments) {
  auto result = Get(member, arguments);
  if (!result || !result->Become(VT_DISPATCH) || result->Get().pdispVal == nullptr) return std::nullopt;
  IDispatch* const object = result->Get().pdispVal;
  object->AddRef();
  return LateBound(ComPointer<IDispatch>(object));
}

bool LateBound::Put(const wchar_t* member, const Variant& value) {
  return Invoke(member, DISPATCH_PROPERTYPUT, {value.Get()}, nullptr);
}

bool LateBound::PutReference(const wchar_t* member, const LateBound& value) {
  VARIANT reference;
  VariantInit(&reference);
  reference.vt = VT_DISPATCH;
  reference.pdispVal = value.object_.get();
  return Invoke(member, DISPATCH_PROPERTYPUTREF, {reference}, nullptr);
}

}  // namespace pointalk::win32
