#include "win32/dialogs.h"

#include "win32/ansi.h"
#include "win32/foreground.h"
#include "win32/input_box.h"
#include "win32/wide_text.h"

namespace pointalk::win32 {

int WinDialogs::AskByBox(TextView text, TextView title, int style) {
  const std::wstring shownText = Wide(ThroughAnsi(text));
  const std::wstring shownTitle = Wide(ThroughAnsi(title));
  const BoxInFront front(form_);
  return MessageBoxW(Owner(), shownText.c_str(), shownTitle.c_str(),
                     static_cast<UINT>(style) | MB_SETFOREGROUND | MB_TOPMOST);
}

Text WinDialogs::AskByInput(TextView prompt, TextView title, TextView proposed) {
  InputBox box(Wide(ThroughAnsi(prompt)), Wide(ThroughAnsi(title)), Wide(ThroughAnsi(proposed)));
  const BoxInFront front(form_);
  return ThroughAnsi(FromWide(box.Ask(Owner())));
}

}  // namespace pointalk::win32
