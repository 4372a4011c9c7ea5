// Reads, writes and deletes registry keys and values by their paths. No failure stops a caller: what failed
// stands in the error object until a call of the platform that is described there succeeds.
#pragma once

#include <cstdint>
#include <vector>

#include "platform/ansi.h"
#include "platform/registry_api.h"
#include "registry/registry_error.h"
#include "registry/registry_value.h"
#include "registry/variant.h"
#include "text/text.h"

namespace pointalk {

struct NamedRegistryValue {
  Text name;
  std::uint32_t type = 0;  // the platform's
  Variant value;
};

class RegistryLayer {
 public:
  RegistryLayer(RegistryApi& registry, AnsiCodePage& ansi) : registry_(registry), ansi_(ansi) {}

  // Makes the key where it is missing. A value that does not fit the type is not written.
  void WriteRegistry(TextView path, TextView name, const Variant& value, std::uint32_t type = kChooseType);

  // Without a name the key's default value; empty when there is none. The error object tells how the key
  // opened, not how its value was read.
  Variant ReadRegistry(TextView path, TextView name = {});  // Kept: nothing reads it.

  // Deletes a value.
  void DeleteRegistry(TextView path, TextView name);

  // Deletes a key with all keys below it, the deepest first. One that cannot be deleted stays, and with it
  // the keys above it.
  void DeleteRegistry(TextView path);  // Kept: nothing reads it.

  // In the platform's order, without those that cannot be read.
  std::vector<NamedRegistryValue> EnumerateRegistryValues(TextView path);  // Kept: nothing reads it.

  const RegistryError& Error() const { return error_; }  // Kept: nothing reads it.
  void ClearError() { error_.Clear(); }

 private:
  RegistryApi& registry_;
  AnsiCodePage& ansi_;

  RegistryError error_;

  RegistryKey OpenPath(TextView path);
  // The key that was opened, or 0; the error object tells how it went.
  RegistryKey Described(RegistryOpening opening);
  bool DeleteTree(RegistryKey parent, TextView subKey, int level);
  std::vector<Text> SubKeyNames(RegistryKey key);
};

}  // namespace pointalk
