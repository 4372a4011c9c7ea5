#include "win32/com.h"

#include <cmath>
#include <cstdint>
#include <limits>
#include <string_view>

#include "win32/wide_text.h"

namespace pointalk::win32 {
namespace {

bool IsWhole(double number) {
  return number >= std::numeric_limits<std::int32_t>::min() &&
         number <= std::numeric_limits<std::int32_t>::max() && std::trunc(number) == number;
}

}  // namespace

ComText MakeComText(TextView text) {
  const std::wstring wide = Wide(text);
  return ComText(SysAllocStringLen(wide.data(), static_cast<UINT>(wide.size())));
}

Text FromComText(const OLECHAR* text, std::size_t longest) {
  if (text == nullptr) return {};
  const std::size_t length = SysStringLen(const_cast<OLECHAR*>(text));
  if (length <= longest) return FromWide({text, length});
  const bool cutsInHalf = longest > 0 && IS_SURROGATE_PAIR(text[longest - 1], text[longest]);
  return FromWide({text, cutsInHalf ? longest - 1 : longest});
}

Variant::Variant(double number) : Variant() {
  if (IsWhole(number)) {
    value_.vt = VT_I4;
    value_.lVal = static_cast<LONG>(number);
  } else {
    value_.vt = VT_R8;
    value_.dblVal = number;
  }
}

Variant::Variant(TextView text) : Variant() {
  value_.vt = VT_BSTR;
  value_.bstrVal = MakeComText(text).release();
}

}  // namespace pointalk::win32
