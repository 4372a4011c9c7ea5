#include "registry/registry_path.h"

#include <algorithm>

#include "text/letters.h"

namespace pointalk {
namespace {

constexpr char16_t kBackslash = u'\\';

struct Root {
  TextView longName;
  TextView shortName;
  RegistryKey key;
};

constexpr Root kRoots[] = {
    {u"HKEY_CLASSES_ROOT", u"HKCR", 0x80000000},  {u"HKEY_CURRENT_USER", u"HKCU", 0x80000001},
    {u"HKEY_LOCAL_MACHINE", u"HKLM", 0x80000002}, {u"HKEY_USERS", u"HKU", 0x80000003},
    {u"HKEY_DYN_DATA", u"HKDD", 0x80000006},      {u"HKEY_CURRENT_CONFIG", u"HKCC", 0x80000005},
};

// Where the root's name ends. The first character is never taken for the end.
std::size_t RootEnd(TextView path) { return std::min(path.find(kBackslash, 1), path.size()); }

}  // namespace

RegistryKey RootKeyFromPath(TextView path, RegistryError& error) {
  const std::size_t start = path.starts_with(kBackslash) ? 1 : 0;
  const Text name = ToUpper(path.substr(start, RootEnd(path) - start));
  for (const Root& root : kRoots) {
    if (name == root.longName || name == root.shortName) return root.key;
  }
  RaiseRegistryError(error, kInvalidRoot);
  return 0;
}

TextView SubKeyFromPath(TextView path) {
  const std::size_t end = RootEnd(path);
  return path.substr(std::min(end + 1, path.size()));
}

Text EnsureTrailingBackslash(TextView path) {
  Text ended(path);
  if (!path.ends_with(kBackslash)) ended += kBackslash;
  return ended;
}

}  // namespace pointalk
