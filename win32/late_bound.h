// An object whose members are called by their names.
#pragma once

#include <windows.h>

#include <oleauto.h>

#include <initializer_list>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "win32/com.h"

namespace pointalk::win32 {

class LateBound {
 public:
  LateBound() = default;  // no object: every member fails
  explicit LateBound(ComPointer<IDispatch> object) : object_(std::move(object)) {}

  // An object of a class; no value when the class is not registered.
  static std::optional<LateBound> Create(const CLSID& classId);

  // Arguments are in the order in which the member has them.
  using Arguments = std::initializer_list<VARIANT>;
  [[nodiscard]] bool Call(const wchar_t* member, Arguments arguments = {});
  std::optional<Variant> Get(const wchar_t* member, Arguments arguments = {});
  std::optional<LateBound> Fetch(const wchar_t* member, Arguments arguments = {});
  [[nodiscard]] bool Put(const wchar_t* member, const Variant& value);
  [[nodiscard]] bool PutReference(const wchar_t* member, const LateBound& value);

  // The object by an interface of another kind; null where it lacks that.
  template <typename Interface> ComPointer<Interface> As() const {
    return object_ ? InterfaceOf<Interface>(*object_) : nullptr;
  }

 private:
  struct Member {
    std::wstring name;
    DISPID id;
  };

  std::optional<DISPID> IdOf(const wchar_t* member);
  bool Invoke(const wchar_t* member, WORD kind, Arguments arguments, VARIANT* result);

  ComPointer<IDispatch> object_;
  std::vector<Member> members_;  // those called so far: a name is looked up once
};

}  // namespace pointalk::win32
