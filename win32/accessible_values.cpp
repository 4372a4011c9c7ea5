#include "win32/accessible_values.h"

namespace pointalk::win32 {

std::optional<std::int32_t> NumberIn(Variant& value) {
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

}  // namespace pointalk::win32
