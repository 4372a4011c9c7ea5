#include "wine/voice/late_bound.h"

namespace pointalk::wine {

namespace {

bool LeftOut(const VARIANT& argument) {
  return argument.vt == VT_ERROR && argument.scode == DISP_E_PARAMNOTFOUND;
}

Access AccessOf(WORD flags) {
  if (flags & DISPATCH_PROPERTYPUTREF) return Access::kPutReference;
  if (flags & DISPATCH_PROPERTYPUT) return Access::kPut;
  return Access::kGetOrCall;
}

}  // namespace

bool Arguments::Given(unsigned index) const {
  return index < parameters_.cArgs && !LeftOut(parameters_.rgvarg[parameters_.cArgs - 1 - index]);
}

HRESULT Arguments::Converted(unsigned index, VARTYPE type, VARIANT& value) const {
  VariantInit(&value);
  if (!Given(index)) return DISP_E_PARAMNOTOPTIONAL;
  const HRESULT copied = VariantCopyInd(&value, &parameters_.rgvarg[parameters_.cArgs - 1 - index]);
  if (FAILED(copied)) return copied;
  const HRESULT changed = VariantChangeType(&value, &value, 0, type);
  if (FAILED(changed)) VariantClear(&value);
  return changed;
}

HRESULT Arguments::Whole(unsigned index, LONG& value) const {
  VARIANT converted;
  const HRESULT outcome = Converted(index, VT_I4, converted);
  if (SUCCEEDED(outcome)) value = converted.lVal;
  return outcome;
}

HRESULT Arguments::Real(unsigned index, double& value) const {
  VARIANT converted;
  const HRESULT outcome = Converted(index, VT_R8, converted);
  if (SUCCEEDED(outcome)) value = converted.dblVal;
  return outcome;
}

HRESULT Arguments::Text(unsigned index, std::u16string& value) const {
  VARIANT converted;
  const HRESULT outcome = Converted(index, VT_BSTR, converted);
  if (FAILED(outcome)) return outcome;
  const wchar_t* units = converted.bstrVal;
  value.assign(units, units + SysStringLen(converted.bstrVal));
  VariantClear(&converted);
  return outcome;
}

HRESULT Arguments::Object(unsigned index, IDispatch*& value) const {
  VARIANT converted;
  const HRESULT outcome = Converted(index, VT_DISPATCH, converted);
  if (FAILED(outcome)) return outcome;
  value = converted.pdispVal;
  VariantClear(&converted);  // the client keeps its own reference for the time of the call
  return value ? S_OK : E_INVALIDARG;
}

LateBound::LateBound(const std::vector<Member>& members, const IID& interfaceId)
    : members_(members), interfaceId_(interfaceId) {}

HRESULT LateBound::QueryInterface(REFIID id, void** object) {
  if (!object) return E_POINTER;
  *object = nullptr;
  if (id != IID_IUnknown && id != IID_IDispatch && id != interfaceId_) return E_NOINTERFACE;
  *object = static_cast<IDispatch*>(this);
  AddRef();
  return S_OK;
}

ULONG LateBound::AddRef() { return ++references_; }

ULONG LateBound::Release() {
  const ULONG left = --references_;
  if (left == 0) delete this;
  return left;
}

HRESULT LateBound::GetTypeInfoCount(UINT* count) {
  if (!count) return E_POINTER;
  *count = 0;
  return S_OK;
}

HRESULT LateBound::GetTypeInfo(UINT, LCID, ITypeInfo** info) {
  if (info) *info = nullptr;
  return DISP_E_BADINDEX;
}

// Names after the first are those of arguments; none are known.
HRESULT LateBound::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) {
  if (!names || !ids || count == 0) return E_INVALIDARG;
  for (UINT i = 0; i < count; ++i) ids[i] = DISPID_UNKNOWN;
  for (const Member& member : members_)
    if (lstrcmpiW(member.name, names[0]) == 0) ids[0] = member.id;
  return ids[0] == DISPID_UNKNOWN || count > 1 ? DISP_E_UNKNOWNNAME : S_OK;
}

HRESULT LateBound::Invoke(DISPID member, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                          EXCEPINFO*, UINT*) {
  if (!parameters) return E_INVALIDARG;
  const Access access = AccessOf(flags);
  const UINT namesOfPut = access == Access::kGetOrCall ? 0 : 1;
  if (parameters->cNamedArgs > namesOfPut) return DISP_E_NONAMEDARGS;
  VARIANT unwanted;
  VARIANT& answer = result ? *result : unwanted;
  VariantInit(&answer);
  const HRESULT outcome = Call(member, access, Arguments(*parameters), answer);
  if (!result) VariantClear(&unwanted);
  return outcome;
}

void SetWhole(VARIANT& result, LONG value) {
  result.vt = VT_I4;
  result.lVal = value;
}

void SetTruth(VARIANT& result, bool value) {
  result.vt = VT_BOOL;
  result.boolVal = value ? VARIANT_TRUE : VARIANT_FALSE;
}

void SetObject(VARIANT& result, IDispatch* object) {
  result.vt = VT_DISPATCH;
  result.pdispVal = object;
}

}  // namespace pointalk::wine
