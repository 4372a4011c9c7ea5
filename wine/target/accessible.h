// An accessible object of the target's own: one window's element and the elements inside it, told as
// configured.
#pragma once

#include <windows.h>

#include <oleacc.h>

#include <atomic>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <utility>

#include "wine/target/behaviour.h"
#include "wine/target/text.h"

namespace pointalk::target {

// One element; a text that is missing is answered with S_FALSE and no text.
struct Element {
  std::optional<std::wstring> name;
  std::optional<std::wstring> value;
  std::optional<std::wstring> description;
  std::wstring role = L"10";      // a number, or the text of a role of its own
  std::wstring roleType = L"i4";  // i2, i4, r8, bstr or empty: how the role is handed over
  std::optional<LONG> state = 0;  // none: answered with E_NOTIMPL
  std::wstring stateText;         // answered in place of the number, where it is not empty
  RECT rect{};                    // screen pixels
  std::set<std::wstring> fails;   // name, value, description, role, state: answered with E_FAIL
  bool isObject = false;          // handed over as an object of its own instead of a number
};

// Elements by child identifier; 0 is the window's own.
struct ElementTable {
  std::map<LONG, Element> elements;
  std::shared_ptr<Behaviour> behaviour;
};

// Changes an element by the options of an `element` command. Throws CommandError.
void ConfigureElement(Element& element, const CommandLine& line);

class AccessibleObject final : public IAccessible {
 public:
  // self is the child identifier of the element that this object is.
  AccessibleObject(std::shared_ptr<ElementTable> table, LONG self) : table_(std::move(table)), self_(self) {}

  STDMETHODIMP QueryInterface(REFIID iid, void** object) override;
  STDMETHODIMP_(ULONG) AddRef() override { return ++references_; }
  STDMETHODIMP_(ULONG) Release() override;

  STDMETHODIMP GetTypeInfoCount(UINT* count) override;
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
  STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) override;

  STDMETHODIMP get_accParent(IDispatch** parent) override;
  STDMETHODIMP get_accChildCount(LONG* count) override;
  STDMETHODIMP get_accChild(VARIANT child, IDispatch** object) override;
  STDMETHODIMP get_accName(VARIANT child, BSTR* name) override;
  STDMETHODIMP get_accValue(VARIANT child, BSTR* value) override;
  STDMETHODIMP get_accDescription(VARIANT child, BSTR* description) override;
  STDMETHODIMP get_accRole(VARIANT child, VARIANT* role) override;
  STDMETHODIMP get_accState(VARIANT child, VARIANT* state) override;
  STDMETHODIMP get_accHelp(VARIANT, BSTR* help) override;
  STDMETHODIMP get_accHelpTopic(BSTR* file, VARIANT, LONG* topic) override;
  STDMETHODIMP get_accKeyboardShortcut(VARIANT, BSTR* shortcut) override;
  STDMETHODIMP get_accFocus(VARIANT* child) override;
  STDMETHODIMP get_accSelection(VARIANT* children) override;
  STDMETHODIMP get_accDefaultAction(VARIANT, BSTR* action) override;
  STDMETHODIMP accSelect(LONG, VARIANT) override { return E_NOTIMPL; }
  STDMETHODIMP accLocation(LONG* left, LONG* top, LONG* width, LONG* height, VARIANT child) override;
  STDMETHODIMP accNavigate(LONG, VARIANT, VARIANT* end) override;
  STDMETHODIMP accHitTest(LONG x, LONG y, VARIANT* child) override;
  STDMETHODIMP accDoDefaultAction(VARIANT) override { return E_NOTIMPL; }
  STDMETHODIMP put_accName(VARIANT, BSTR) override { return E_NOTIMPL; }
  STDMETHODIMP put_accValue(VARIANT, BSTR) override { return E_NOTIMPL; }

 private:
  ~AccessibleObject() = default;
  const Element* Find(const VARIANT& child) const;
  HRESULT TextProperty(UINT call, const wchar_t* property, const VARIANT& child,
                       std::optional<std::wstring> Element::*text, BSTR* result);
  HRESULT NoText(BSTR* text);

  std::atomic<ULONG> references_ = 1;
  std::shared_ptr<ElementTable> table_;
  LONG self_;
};

}  // namespace pointalk::target
