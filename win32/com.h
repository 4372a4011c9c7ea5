// Owners of what COM hands out.
#pragma once

#include <windows.h>

#include <oleauto.h>

#include <cstddef>
#include <cstdint>
#include <memory>

#include "text/text.h"

namespace pointalk::win32 {

struct ReleasedByItself {
  void operator()(IUnknown* object) const { object->Release(); }
};

template <typename Interface> using ComPointer = std::unique_ptr<Interface, ReleasedByItself>;

// The object by another interface; null where it has none of that kind.
template <typename Interface> ComPointer<Interface> InterfaceOf(IUnknown& object) {
  void* found = nullptr;
  if (FAILED(object.QueryInterface(__uuidof(Interface), &found))) return nullptr;
  return ComPointer<Interface>(static_cast<Interface*>(found));
}

// COM on this thread for as long as it lives.
class ComThread {
 public:
  explicit ComThread(DWORD kind) : started_(SUCCEEDED(CoInitializeEx(nullptr, kind))) {}
  ~ComThread() {
    if (started_) CoUninitialize();
  }
  ComThread(const ComThread&) = delete;
  ComThread& operator=(const ComThread&) = delete;

 private:
  bool started_;
};

struct FreedByCom {
  void operator()(OLECHAR* text) const { SysFreeString(text); }
};
using ComText = std::unique_ptr<OLECHAR, FreedByCom>;

// Null when there is no memory.
ComText MakeComText(TextView text);

// A text that another program made may be of any length.
inline constexpr std::size_t kLongestComText = 1024 * 1024;  // characters

// At most so many characters; a character of two units is not cut in half.
Text FromComText(const OLECHAR* text, std::size_t longest = kLongestComText);

class Variant {
 public:
  Variant() = default;  // empty
  explicit Variant(std::int32_t number) : Variant() {
    value_.vt = VT_I4;
    value_.lVal = number;
  }
  // A whole number goes as one, since an engine may know no others.
  explicit Variant(double number);
  explicit Variant(TextView text);
  ~Variant() { VariantClear(&value_); }
  Variant(Variant&& other) noexcept : value_(other.value_) { VariantInit(&other.value_); }
  Variant& operator=(Variant&&) = delete;

  const VARIANT& Get() const { return value_; }
  // For a function that fills it.
  VARIANT* Fill() { return &value_; }

  // The value as another type; false where it cannot be that.
  [[nodiscard]] bool Become(VARTYPE type) { return SUCCEEDED(VariantChangeType(&value_, &value_, 0, type)); }

 private:
  VARIANT value_{};
};

}  // namespace pointalk::win32
