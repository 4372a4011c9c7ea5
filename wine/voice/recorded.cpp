#include "wine/voice/recorded.h"

#include "wine/heard/heard.h"

namespace pointalk::wine {

HRESULT RecordedNumber(const char* what, LONG& number, Access access, const Arguments& arguments,
                       VARIANT& result) {
  HeardLine line(what);
  if (access == Access::kGetOrCall) {
    line.Ascii("how", "get").Number("value", number).Write();
    SetWhole(result, number);
    return S_OK;
  }
  const HRESULT outcome = arguments.Whole(0, number);
  line.Ascii("how", "put").Number("value", number).Number("result", outcome).Write();
  return outcome;
}

}  // namespace pointalk::wine
