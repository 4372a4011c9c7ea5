#include "win32/object_question.h"

#include <windows.h>

#include <oleacc.h>

#include "win32/com.h"

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
std::optional<std::int32_t> ReadRole(IAccessible& object, const VARIANT& child) {
  Variant role;
  if (FAILED(object.get_accRole(child, role.Fill()))) return std::nullopt;
  switch (role.Get().vt) {
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
  if (!role.Become(VT_I4)) return std::nullopt;
  return role.Get().lVal;
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
  return facts;
}

}  // namespace pointalk::win32
