#include "wine/target/accessible.h"

#include <algorithm>
#include <tuple>

#include "wine/target/messages.h"

namespace pointalk::target {
namespace {

// The names between commas.
std::set<std::wstring> Names(std::wstring_view list) {
  std::set<std::wstring> names;
  for (std::size_t begin = 0; begin < list.size();) {
    const std::size_t end = std::min(list.find(L',', begin), list.size());
    names.emplace(list.substr(begin, end - begin));
    begin = end + 1;
  }
  return names;
}

BSTR NewText(std::wstring_view text) {
  return SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
}

void SetNumber(VARIANT* variant, LONG number) {
  variant->vt = VT_I4;
  variant->lVal = number;
}

}  // namespace

void ConfigureElement(Element& element, const CommandLine& line) {
  if (line.Has(L"name")) element.name = line.Option(L"name");
  if (line.Has(L"value")) element.value = line.Option(L"value");
  if (line.Has(L"description")) element.description = line.Option(L"description");
  if (line.Has(L"role")) element.role = line.Option(L"role");
  element.roleType = line.OptionOr(L"roletype", element.roleType);
  if (element.roleType == L"i4" || element.roleType == L"i2" || element.roleType == L"r8") {
    std::ignore = ParseNumber(element.role);  // throws when it is no number
  } else if (element.roleType != L"bstr" && element.roleType != L"empty") {
    throw CommandError("unknown role type " + JsonText(element.roleType));
  }
  if (line.OptionOr(L"state", L"") == L"none")
    element.state.reset();
  else if (line.Has(L"state"))
    element.state = static_cast<LONG>(line.NumberOr(L"state", 0));
  if (line.Has(L"statetext")) element.stateText = line.Option(L"statetext");
  if (line.Has(L"rect")) element.rect = ParseRect(line.Option(L"rect"));
  if (line.Has(L"fails")) element.fails = Names(line.Option(L"fails"));
  if (line.Has(L"object")) element.isObject = line.NumberOr(L"object", 0) != 0;
}

STDMETHODIMP AccessibleObject::QueryInterface(REFIID iid, void** object) {
  if (iid == __uuidof(IUnknown) || iid == __uuidof(IDispatch) || iid == __uuidof(IAccessible)) {
    *object = static_cast<IAccessible*>(this);
    AddRef();
    return S_OK;
  }
  *object = nullptr;
  return E_NOINTERFACE;
}

STDMETHODIMP_(ULONG) AccessibleObject::Release() {
  const ULONG left = --references_;
  if (left == 0) delete this;
  return left;
}

STDMETHODIMP AccessibleObject::GetTypeInfoCount(UINT* count) {
  *count = 0;
  return S_OK;
}

STDMETHODIMP AccessibleObject::Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) {
  return E_NOTIMPL;
}

const Element* AccessibleObject::Find(const VARIANT& child) const {
  if (child.vt != VT_I4) return nullptr;
  const auto found = table_->elements.find(child.lVal == CHILDID_SELF ? self_ : child.lVal);
  return found == table_->elements.end() ? nullptr : &found->second;
}

HRESULT AccessibleObject::TextProperty(UINT call, const wchar_t* property, const VARIANT& child,
                                       std::optional<std::wstring> Element::*text, BSTR* result) {
  *result = nullptr;
  if (table_->behaviour->EnterCall(call)) return E_FAIL;
  const Element* element = Find(child);
  if (!element) return E_INVALIDARG;
  if (element->fails.contains(property)) return E_FAIL;
  if (!(element->*text)) return S_FALSE;
  *result = NewText(*(element->*text));
  return *result ? S_OK : E_OUTOFMEMORY;
}

STDMETHODIMP AccessibleObject::get_accName(VARIANT child, BSTR* name) {
  return TextProperty(kAccName, L"name", child, &Element::name, name);
}

STDMETHODIMP AccessibleObject::get_accValue(VARIANT child, BSTR* value) {
  return TextProperty(kAccValue, L"value", child, &Element::value, value);
}

STDMETHODIMP AccessibleObject::get_accDescription(VARIANT child, BSTR* description) {
  return TextProperty(kAccDescription, L"description", child, &Element::description, description);
}

STDMETHODIMP AccessibleObject::get_accRole(VARIANT child, VARIANT* role) {
  VariantInit(role);
  if (table_->behaviour->EnterCall(kAccRole)) return E_FAIL;
  const Element* element = Find(child);
  if (!element) return E_INVALIDARG;
  if (element->fails.contains(L"role")) return E_FAIL;
  if (element->roleType == L"empty") return S_OK;
  if (element->roleType == L"bstr") {
    role->vt = VT_BSTR;
    role->bstrVal = NewText(element->role);
    return S_OK;
  }
  SetNumber(role, static_cast<LONG>(ParseNumber(element->role)));
  if (element->roleType == L"i2") return VariantChangeType(role, role, 0, VT_I2);
  if (element->roleType == L"r8") return VariantChangeType(role, role, 0, VT_R8);
  return S_OK;
}

STDMETHODIMP AccessibleObject::accHitTest(LONG x, LONG y, VARIANT* child) {
  VariantInit(child);
  if (table_->behaviour->EnterCall(kAccHitTest)) return E_FAIL;
  SetNumber(child, CHILDID_SELF);
  if (self_ != CHILDID_SELF) return S_OK;
  for (const auto& [id, element] : table_->elements) {
    if (id == CHILDID_SELF || !PtInRect(&element.rect, {x, y})) continue;
    SetNumber(child, id);
    if (!element.isObject) return S_OK;
    child->vt = VT_DISPATCH;
    child->pdispVal = new AccessibleObject(table_, id);
    return S_OK;
  }
  return S_OK;
}

STDMETHODIMP AccessibleObject::accLocation(LONG* left, LONG* top, LONG* width, LONG* height, VARIANT child) {
  *left = *top = *width = *height = 0;
  if (table_->behaviour->EnterCall(kAccOther)) return E_FAIL;
  const Element* element = Find(child);
  if (!element) return E_INVALIDARG;
  *left = element->rect.left;
  *top = element->rect.top;
  *width = element->rect.right - element->rect.left;
  *height = element->rect.bottom - element->rect.top;
  return S_OK;
}

STDMETHODIMP AccessibleObject::get_accState(VARIANT child, VARIANT* state) {
  VariantInit(state);
  if (table_->behaviour->EnterCall(kAccState)) return E_FAIL;
  const Element* element = Find(child);
  if (!element) return E_INVALIDARG;
  if (element->fails.contains(L"state")) return E_FAIL;
  if (!element->stateText.empty()) {
    state->vt = VT_BSTR;
    state->bstrVal = NewText(element->stateText);
    return S_OK;
  }
  if (!element->state) return E_NOTIMPL;
  SetNumber(state, *element->state);
  return S_OK;
}

STDMETHODIMP AccessibleObject::get_accChildCount(LONG* count) {
  *count = 0;
  if (table_->behaviour->EnterCall(kAccOther)) return E_FAIL;
  if (self_ != CHILDID_SELF) return S_OK;
  *count = static_cast<LONG>(table_->elements.size() - table_->elements.count(CHILDID_SELF));
  return S_OK;
}

STDMETHODIMP AccessibleObject::get_accChild(VARIANT child, IDispatch** object) {
  *object = nullptr;
  if (table_->behaviour->EnterCall(kAccOther)) return E_FAIL;
  const Element* element = Find(child);
  if (!element) return E_INVALIDARG;
  if (!element->isObject) return S_FALSE;
  *object = new AccessibleObject(table_, child.lVal);
  return S_OK;
}

STDMETHODIMP AccessibleObject::get_accParent(IDispatch** parent) {
  *parent = nullptr;
  return table_->behaviour->EnterCall(kAccOther) ? E_FAIL : S_FALSE;
}

HRESULT AccessibleObject::NoText(BSTR* text) {
  *text = nullptr;
  return table_->behaviour->EnterCall(kAccOther) ? E_FAIL : S_FALSE;
}

STDMETHODIMP AccessibleObject::get_accHelp(VARIANT, BSTR* help) { return NoText(help); }
STDMETHODIMP AccessibleObject::get_accKeyboardShortcut(VARIANT, BSTR* shortcut) { return NoText(shortcut); }
STDMETHODIMP AccessibleObject::get_accDefaultAction(VARIANT, BSTR* action) { return NoText(action); }

STDMETHODIMP AccessibleObject::get_accHelpTopic(BSTR* file, VARIANT, LONG* topic) {
  *topic = 0;
  return NoText(file);
}

STDMETHODIMP AccessibleObject::get_accFocus(VARIANT* child) {
  VariantInit(child);
  return S_FALSE;
}

STDMETHODIMP AccessibleObject::get_accSelection(VARIANT* children) {
  VariantInit(children);
  return S_FALSE;
}

STDMETHODIMP AccessibleObject::accNavigate(LONG, VARIANT, VARIANT* end) {
  VariantInit(end);
  return S_FALSE;
}

}  // namespace pointalk::target
