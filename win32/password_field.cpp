#include "win32/password_field.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <string_view>

#include "win32/window_handles.h"

namespace pointalk::win32 {
namespace {

// Classes of the system whose windows are asked for their texts often, and are no text fields.
constexpr std::wstring_view kNoFields[] = {
    L"#32768",
    L"#32769",
    L"#32770",
    L"Button",
    L"ComboBox",
    L"ComboBoxEx32",
    L"ComboLBox",
    L"ListBox",
    L"MDIClient",
    L"ReBarWindow32",
    L"ScrollBar",
    L"Static",
    L"SysHeader32",
    L"SysListView32",
    L"SysTabControl32",
    L"SysTreeView32",
    L"ToolbarWindow32",
    L"msctls_progress32",
    L"msctls_statusbar32",
    L"msctls_trackbar32",
    L"msctls_updown32",
    L"tooltips_class32",
};

class ClassName {
 public:
  explicit ClassName(HWND window) { length_ = GetClassNameW(window, name_.data(), kLongestClassName + 1); }

  // Upper and lower case count as the same, as they do for the system.
  bool BeginsWith(std::wstring_view begin) const { return HasAt(0, begin); }
  bool Is(std::wstring_view whole) const {
    return static_cast<std::size_t>(length_) == whole.size() && BeginsWith(whole);
  }
  bool Contains(std::wstring_view part) const {
    for (int place = 0; place < length_; ++place) {
      if (HasAt(place, part)) return true;
    }
    return false;
  }

 private:
  bool HasAt(int place, std::wstring_view part) const {
    const int length = static_cast<int>(part.size());
    return length <= length_ - place &&
           CompareStringOrdinal(name_.data() + place, length, part.data(), length, TRUE) == CSTR_EQUAL;
  }

  std::array<wchar_t, kLongestClassName + 1> name_{};
  int length_ = 0;
};

PasswordSigns SignsOf(HWND window, const ClassName& name) {
  const auto isClass = [&](std::wstring_view known) { return name.Is(known); };
  if (std::any_of(std::begin(kNoFields), std::end(kNoFields), isClass)) return PasswordSigns::kNoField;
  if ((GetWindowLongW(window, GWL_STYLE) & ES_PASSWORD) == 0) return PasswordSigns::kPlain;
  return name.Is(L"Edit") || name.BeginsWith(L"RichEdit") ? PasswordSigns::kPassword : PasswordSigns::kStyled;
}

}  // namespace

// A program gives a class that it makes of the system's combo box a name of its own; what is inside keeps the
// system's.
TextKeeper KeeperOfText(HWND window) {
  const ClassName name(window);
  if (name.Contains(L"combo")) {
    for (const wchar_t* const inside : {L"Edit", L"ComboBox"}) {
      if (const HWND child = FindWindowExW(window, nullptr, inside, nullptr)) return KeeperOfText(child);
    }
  }
  return {window, SignsOf(window, name)};
}

}  // namespace pointalk::win32
