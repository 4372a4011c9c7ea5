#include "registry/registry_error.h"

#include "text/numbers.h"

namespace pointalk {
namespace {

constexpr std::int32_t kErrorBase = -2147221504;  // 0x80040000, where an object's own errors begin
constexpr std::int32_t kUndefinedError = 255;

constexpr TextView kSource = u"Registry";
constexpr TextView kApiSource = u"Registry[API Call]";
constexpr TextView kValueSource = u" [Let ValueOf]";

constexpr TextView ApiDescription(std::int32_t code) {
  switch (code) {
    case 2: return u"Key/Value does not exist.";
    case 5: return u"Access to Registry Denied.";
    case 14: return u"Out of memory.";
    case 87: return u"Invalid Parameter.";
    case 1009: return u"Corrupt Registry Database!";
    case 1010: return u"Key name is bad.";
    case 1011: return u"Cannot Open Key.";
    case 1012: return u"Cannot Read Key.";
    case 1013: return u"Cannot Write Key.";
    default: return u"Undefined key error code!";
  }
}

void Raise(RegistryError& error, std::int32_t code, TextView description) {
  error.number = kErrorBase + code;
  error.description = description;
}

}  // namespace

void RaiseRegistryError(RegistryError& error, std::int32_t code) {
  switch (code) {
    case kNoCurrentKey: error.source = kSource; return Raise(error, code, u"No current Key.");
    case kInvalidRoot: error.source = kSource; return Raise(error, code, u"Invalid Key root.");
    case kTypeMismatch:
      error.source += kValueSource;
      return Raise(error, code, u"Type passed doesn't match Value passed.");
    case kUnknownType:
      error.source += kValueSource;
      return Raise(error, code, u"Type passed doesn't exist. Use STRING, DWORD or BINARY.");
    default:
      error.source = kSource;
      // The text tells a number that is 9 too high, and stays so.
      return Raise(error, kUndefinedError,
                   u"Undefined error number : " + WholeNumberText(std::int64_t{code} + 9));
  }
}

void DescribeApiError(RegistryError& error, std::int32_t code) {
  if (code == 0) return error.Clear();
  error.source = kApiSource;
  error.description = ApiDescription(code);
}

}  // namespace pointalk
