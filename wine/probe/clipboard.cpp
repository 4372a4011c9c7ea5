#include <windows.h>

#include "wine/probe/questions.h"

namespace pointalk::probe {
namespace {

using target::JsonObject;

}  // namespace

std::string AnswerClipboard() {
  if (!OpenClipboard(nullptr)) throw target::CommandError("the clipboard is in use");
  JsonObject json;
  const HGLOBAL memory = GetClipboardData(CF_UNICODETEXT);
  if (const auto* const text = static_cast<const wchar_t*>(memory ? GlobalLock(memory) : nullptr)) {
    json.Text("text", text);
    GlobalUnlock(memory);
  }
  CloseClipboard();
  return json.Line();
}

}  // namespace pointalk::probe
