#include "win32/object_question.h"

#include <windows.h>

#include <oleacc.h>

#include "win32/com.h"
#include "win32/password_field.h"

namespace pointalk::win32 {
namespace {

using TextProperty = HRESULT (STDMETHODCALLTYPE IAccessible::*)(VARIANT, BSTR*);

// A value is the text of a document at times. A description is a sentence or two, and what goes on for ever
// is of use to nobody.
constexpr std::size_t kLongestDescription = 2000;  // characters

std::optional<Text> Read(IAccessible& object, TextProperty property, const VARIANT& child,
                         std::size_t longest = kLongestComText) {
  BSTR text = nullptr;
  const HRESULT outcome = (object.*property)(child, &text);
  const ComText owned(text);
  if (FAILED(outcome) || text == nullptr) return std::nullopt;
  return FromComText(text, longest);
}

// Some objects give a text of their own instead of a number.
std::optional<std::int32_t> Number(Variant& value) {
  switch (value.Get().vt) {
    case VT_I1:
    case VT_UI1:
    case VT_I2:
    case VT_UI2:
    case VT_I4:
    case VT_UI4:
    case VT_INT:
    case VT_UINT:
    case VT_R4:
    case VT_R8: break;
    default: return std::nullopt;
  }
  if (!value.Become(VT_I4)) return std::nullopt;
  return value.Get().lVal;
}

std::optional<std::int32_t> ReadRole(IAccessible& object, const VARIANT& child) {
  Variant role;
  if (FAILED(object.get_accRole(child, role.Fill()))) return std::nullopt;
  return Number(role);
}

// An object that knows no states has no protected one; one that fails to tell its state may have it.
bool IsProtected(IAccessible& object, const VARIANT& child) {
  Variant state;
  const HRESULT outcome = object.get_accState(child, state.Fill());
  if (outcome == E_NOTIMPL || outcome == DISP_E_MEMBERNOTFOUND) return false;
  return FAILED(outcome) || (Number(state).value_or(0) & STATE_SYSTEM_PROTECTED) != 0;
}

// The window that an object says it is of; null when it does not.
HWND WindowOf(IAccessible& object) {
  void* found = nullptr;
  HWND window = nullptr;
  if (FAILED(object.QueryInterface(__uuidof(IOleWindow), &found)) || found == nullptr) return nullptr;
  const ComPointer<IOleWindow> of(static_cast<IOleWindow*>(found));
  return SUCCEEDED(of->GetWindow(&window)) ? window : nullptr;
}

// The objects that the system makes for windows of no kind that it knows have the window's text for a name.
// An edit's has the label's.
bool IsNamedByText(std::optional<std::int32_t> role) {
  return !role || *role == ROLE_SYSTEM_CLIENT || *role == ROLE_SYSTEM_WINDOW;
}

// Within the limit of any message; that of the whole question goes on meanwhile.
std::optional<std::int32_t> AskWindow(HWND window, UINT message) {
  constexpr UINT kLimit = 100;  // milliseconds
  DWORD_PTR result = 0;
  if (SendMessageTimeoutW(window, message, 0, 0, SMTO_NORMAL | SMTO_ABORTIFHUNG, kLimit, &result) == 0)
    return std::nullopt;
  return static_cast<std::int32_t>(static_cast<std::uint32_t>(result));
}

// At a point of a disabled window the system finds the window below, but the object is the disabled one's.
bool IsOfPassword(IAccessible& object, Point screen) {
  const HWND atPoint = WindowFromPoint({screen.x, screen.y});
  if (HoldsPassword(atPoint, &AskWindow)) return true;
  const HWND own = WindowOf(object);
  return own != nullptr && own != atPoint && HoldsPassword(own, &AskWindow);
}

// Takes out what is or may be a password. Asks no more than the facts make necessary: most have neither a
// value nor a name that a window's text may be.
void KeepPassword(IAccessible& object, const VARIANT& child, Point screen, AccessibleFacts& facts) {
  if (facts.value && IsProtected(object, child)) facts.value.reset();
  const bool mayBeNamedByText = facts.name && IsNamedByText(facts.role);
  if (!facts.value && !mayBeNamedByText) return;
  if (!IsOfPassword(object, screen)) return;
  facts.value.reset();
  if (mayBeNamedByText) facts.name.reset();
}

}  // namespace

std::optional<AccessibleFacts> AskObjectAt(Point screen) {
  IAccessible* found = nullptr;
  Variant child;
  const HRESULT outcome = AccessibleObjectFromPoint({screen.x, screen.y}, &found, child.Fill());
  const ComPointer<IAccessible> object(found);
  if (FAILED(outcome) || !object) return std::nullopt;
  AccessibleFacts facts;
  facts.name = Read(*object, &IAccessible::get_accName, child.Get());
  facts.role = ReadRole(*object, child.Get());
  facts.description = Read(*object, &IAccessible::get_accDescription, child.Get(), kLongestDescription);
  facts.value = Read(*object, &IAccessible::get_accValue, child.Get());
  KeepPassword(*object, child.Get(), screen, facts);
  return facts;
}

}  // namespace pointalk::win32
