#include "win32/object_question.h"

#include <windows.h>

#include <oleacc.h>

#include <array>
#include <utility>

#include "win32/accessible_values.h"
#include "win32/automation_choice.h"
#include "win32/automation_question.h"
#include "win32/com.h"
#include "win32/password_field.h"
#include "win32/unresponsive_threads.h"
#include "win32/wide_text.h"
#include "win32/window_scale.h"

namespace pointalk::win32 {
namespace {

using TextProperty = HRESULT (STDMETHODCALLTYPE IAccessible::*)(VARIANT, BSTR*);

std::optional<Text> Read(IAccessible& object, TextProperty property, const VARIANT& child,
                         std::size_t longest = kLongestComText) {
  BSTR text = nullptr;
  const HRESULT outcome = (object.*property)(child, &text);
  const ComText owned(text);
  if (FAILED(outcome) || text == nullptr) return std::nullopt;
  return FromComText(text, longest);
}

std::optional<std::int32_t> ReadRole(IAccessible& object, const VARIANT& child) {
  Variant role;
  if (FAILED(object.get_accRole(child, role.Fill()))) return std::nullopt;
  return NumberIn(role);
}

// An object that knows no states has no protected one; one that fails to tell its state, or tells it in
// words, may have it.
bool IsProtected(IAccessible& object, const VARIANT& child) {
  Variant state;
  const HRESULT outcome = object.get_accState(child, state.Fill());
  if (outcome == E_NOTIMPL || outcome == DISP_E_MEMBERNOTFOUND) return false;
  if (FAILED(outcome)) return true;
  const bool isTold = state.Get().vt != VT_EMPTY;
  const std::optional<std::int32_t> number = NumberIn(state);
  return number ? (*number & STATE_SYSTEM_PROTECTED) != 0 : isTold;
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

// The windows at and of an object, asked whether they are password fields. To be made before the object is
// asked, which may take so long that another window has come to the place meanwhile.
class PasswordQuestion {
 public:
  explicit PasswordQuestion(Point screen) : screen_(screen), before_(AtPlace()) {}

  bool HasPasswordAtPlace() {
    const HWND now = AtPlace();
    return Holds(now) || (now != before_ && Holds(before_));
  }

  // At a point of a disabled window the system finds the window below, but the object is the disabled one's.
  bool IsOfPassword(IAccessible& object) {
    if (HasPasswordAtPlace()) return true;
    const HWND own = WindowOf(object);
    return own != nullptr && own != AtPlace() && own != before_ && Holds(own);
  }

  // A window that did not answer in time; null where all did.
  HWND Unresponsive() const { return unresponsive_; }

 private:
  HWND AtPlace() const { return WindowFromPhysicalPoint({screen_.x, screen_.y}); }

  bool Holds(HWND window) {
    return HoldsPassword(window, [this](HWND field, UINT message) { return Ask(field, message); });
  }

  // Within the limit of any message; that of the whole question goes on meanwhile.
  std::optional<std::int32_t> Ask(HWND window, UINT message) {
    constexpr UINT kAnswerLimit = 100;  // milliseconds
    if (window == unresponsive_) return std::nullopt;
    DWORD_PTR result = 0;
    SetLastError(0);
    if (SendMessageTimeoutW(window, message, 0, 0, SMTO_NORMAL | SMTO_ABORTIFHUNG, kAnswerLimit, &result) !=
        0)
      return static_cast<std::int32_t>(static_cast<std::uint32_t>(result));
    if (ShowsUnresponsive(GetLastError())) unresponsive_ = window;
    return std::nullopt;
  }

  Point screen_;
  HWND before_;  // at the place, before the object was asked
  HWND unresponsive_ = nullptr;
};

// Takes out what is the text of a password field, and tells whether there was any. `isOfPassword` is asked
// only where the facts make it necessary: most have neither a value nor a name that a window's text may be.
template <typename Question> bool KeepFieldText(AccessibleFacts& facts, Question isOfPassword) {
  const bool mayBeNamedByText = facts.name && IsNamedByText(facts.role);
  if (!facts.value && !mayBeNamedByText) return false;
  if (!isOfPassword()) return false;
  facts.value.reset();
  if (mayBeNamedByText) facts.name.reset();
  return true;
}

struct Said {
  std::optional<AccessibleFacts> facts;
  bool isProtected = false;    // asked only where there may be a value
  bool keepsPassword = false;  // one was found, and these are without it
};

Text ClassAt(Point screen) {
  std::array<wchar_t, 257> name{};
  const int length = GetClassNameW(WindowFromPhysicalPoint({screen.x, screen.y}), name.data(),
                                   static_cast<int>(name.size()));
  return FromWide({name.data(), static_cast<std::size_t>(length)});
}

// Nobody converts the place on its way to the object of another program, nor in the messages by which the
// system's own objects ask a control. So it has to be as that program counts.
ComPointer<IAccessible> ObjectAt(POINT screen, Variant& child) {
  const ScaleCalls system = ScaleCalls::OfSystem();
  const InOwnAwareness own(system, WindowFromPhysicalPoint(screen), screen);
  IAccessible* found = nullptr;
  const HRESULT outcome = AccessibleObjectFromPoint(own.Place(), &found, child.Fill());
  ComPointer<IAccessible> object(found);
  return SUCCEEDED(outcome) ? std::move(object) : nullptr;
}

Said AskAccessibleObject(Point screen, PasswordQuestion& password) {
  Variant child;
  const ComPointer<IAccessible> object = ObjectAt({screen.x, screen.y}, child);
  if (!object) return {};
  AccessibleFacts facts;
  facts.name = Read(*object, &IAccessible::get_accName, child.Get());
  facts.role = ReadRole(*object, child.Get());
  facts.description = Read(*object, &IAccessible::get_accDescription, child.Get(), kLongestDescription);
  facts.value = Read(*object, &IAccessible::get_accValue, child.Get());
  const bool mayHaveValue = facts.value || WantsAutomation(facts, ClassAt(screen));
  const bool isProtected = mayHaveValue && IsProtected(*object, child.Get());
  const bool hasKept = isProtected && facts.value;
  if (isProtected) facts.value.reset();
  const bool isOfField = KeepFieldText(facts, [&] { return password.IsOfPassword(*object); });
  return {std::move(facts), isProtected, hasKept || isOfField};
}

}  // namespace

ObjectAnswer AskObjectAt(Point screen, AutomationQuestion& automation, const EarlyAnswer& early) {
  PasswordQuestion password(screen);
  Said said = AskAccessibleObject(screen, password);
  if (!said.keepsPassword && WantsAutomation(said.facts, ClassAt(screen))) {
    early(said.facts);
    if (std::optional<AutomationAnswer> more = automation.Ask(screen)) {
      more->isPassword = more->isPassword || said.isProtected;
      said.facts = Joined(std::move(said.facts), *std::move(more));
      KeepFieldText(*said.facts, [&password] { return password.HasPasswordAtPlace(); });
    }
  }
  return {std::move(said.facts), password.Unresponsive()};
}

}  // namespace pointalk::win32
