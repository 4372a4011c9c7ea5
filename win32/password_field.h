// Password fields of other programs. Windows keeps their texts from us, but not all of them, and Wine keeps
// none: so whatever takes in a text asks here first.
#pragma once

#include <windows.h>

#include <cstdint>
#include <optional>

namespace pointalk::win32 {

// What a window's class and style tell of it.
enum class PasswordSigns {
  kNoField,   // its class is no text field's
  kPassword,  // an edit or rich edit with the style of a password field
  kStyled,    // a text field perhaps, with a style that in an edit is a password field's
  kPlain,     // a text field perhaps, without that style: its program may hide the text all the same
};

// The window that keeps the text which another one gives for its own: the edit of a combo box, where it has
// one; else the window itself.
struct TextKeeper {
  HWND window = nullptr;
  PasswordSigns signs = PasswordSigns::kNoField;
};

// Asks nobody.
TextKeeper KeeperOfText(HWND window);

// Whether a window's text is a password. `ask` sends a window a message without parameters, and gives no
// value where it is not answered; a window that does not answer counts as a password field, and is asked no
// more. Where class and style tell, nobody is asked.
template <typename Ask> bool HoldsPassword(HWND window, Ask ask) {
  const TextKeeper keeper = KeeperOfText(window);
  if (keeper.signs == PasswordSigns::kNoField) return false;
  if (keeper.signs == PasswordSigns::kPassword) return true;
  const std::optional<std::int32_t> character = ask(keeper.window, UINT{EM_GETPASSWORDCHAR});
  if (!character || *character != 0) return true;
  if (keeper.signs == PasswordSigns::kPlain) return false;
  // Every text field has a line at least, and nothing else has one.
  const std::optional<std::int32_t> lines = ask(keeper.window, UINT{EM_GETLINECOUNT});
  return !lines || *lines != 0;
}

}  // namespace pointalk::win32
