#include "win32/registry_api.h"

#include <windows.h>

#include <algorithm>
#include <string>
#include <utility>

#include "win32/ansi.h"

namespace pointalk::win32 {
namespace {

constexpr std::uint32_t kLongestName = 64 * 1024;          // bytes
constexpr std::uint32_t kLargestValue = 16 * 1024 * 1024;  // bytes
constexpr DWORD kClassNameRoom = 1024;                     // bytes

// The numbers of the root keys have 32 bits, and as handles of 64 their sign is carried on.
HKEY ToKey(RegistryKey key) {
  const bool isRoot = key >= 0x80000000U && key <= 0xFFFFFFFFU;
  const auto number = isRoot ? static_cast<std::uint64_t>(static_cast<std::int32_t>(key)) : key;
  return reinterpret_cast<HKEY>(static_cast<std::uintptr_t>(number));
}

RegistryKey FromKey(HKEY key) { return reinterpret_cast<std::uintptr_t>(key); }

// Keys and values are enumerated in the same way.
template <typename Enumerate> RegistryName NameFrom(std::uint32_t capacity, Enumerate enumerate) {
  std::string name(std::min(capacity, kLongestName), '\0');
  auto length = static_cast<DWORD>(name.size());
  const LSTATUS code = enumerate(name.data(), &length);
  if (code != ERROR_SUCCESS) return {code, {}};
  name.resize(std::min<std::size_t>(length, name.size()));
  return {code, Widen(name)};
}

}  // namespace

RegistryOpening WinRegistry::CreateKey(RegistryKey root, TextView subKey) {
  HKEY key = nullptr;
  char noClass[] = "";
  const LSTATUS code = RegCreateKeyExA(ToKey(root), Narrow(subKey).c_str(), 0, noClass,
                                       REG_OPTION_NON_VOLATILE, KEY_ALL_ACCESS, nullptr, &key, nullptr);
  return {code, FromKey(key)};
}

RegistryOpening WinRegistry::OpenKey(RegistryKey root, TextView subKey) {
  HKEY key = nullptr;
  const LSTATUS code = RegOpenKeyExA(ToKey(root), Narrow(subKey).c_str(), 0, KEY_ALL_ACCESS, &key);
  return {code, FromKey(key)};
}

std::int32_t WinRegistry::CloseKey(RegistryKey key) { return RegCloseKey(ToKey(key)); }

std::int32_t WinRegistry::SetValue(RegistryKey key, TextView name, std::uint32_t type,
                                   const std::vector<std::byte>& data) {
  return RegSetValueExA(ToKey(key), Narrow(name).c_str(), 0, type, reinterpret_cast<const BYTE*>(data.data()),
                        static_cast<DWORD>(data.size()));
}

RegistryValueSize WinRegistry::QueryValueSize(RegistryKey key, TextView name) {
  DWORD type = 0;
  DWORD size = 0;
  const LSTATUS code = RegQueryValueExA(ToKey(key), Narrow(name).c_str(), nullptr, &type, nullptr, &size);
  return {code, type, size};
}

RegistryValueData WinRegistry::QueryValue(RegistryKey key, TextView name, std::uint32_t bytes) {
  std::vector<std::byte> data(std::min(bytes, kLargestValue));
  DWORD type = 0;
  auto size = static_cast<DWORD>(data.size());
  const LSTATUS code = RegQueryValueExA(ToKey(key), Narrow(name).c_str(), nullptr, &type,
                                        reinterpret_cast<BYTE*>(data.data()), &size);
  data.resize(code == ERROR_SUCCESS ? std::min<std::size_t>(size, data.size()) : 0);
  return {code, type, std::move(data)};
}

std::int32_t WinRegistry::DeleteValue(RegistryKey key, TextView name) {
  return RegDeleteValueA(ToKey(key), Narrow(name).c_str());
}

RegistryKeyInfo WinRegistry::QueryKey(RegistryKey key) {
  char className[kClassNameRoom];
  DWORD classNameRoom = kClassNameRoom;
  DWORD subKeys = 0;
  DWORD longestSubKeyName = 0;
  DWORD values = 0;
  DWORD longestValueName = 0;
  const LSTATUS code =
      RegQueryInfoKeyA(ToKey(key), className, &classNameRoom, nullptr, &subKeys, &longestSubKeyName, nullptr,
                       &values, &longestValueName, nullptr, nullptr, nullptr);
  return {code, subKeys, longestSubKeyName, values, longestValueName};
}

RegistryName WinRegistry::SubKeyName(RegistryKey key, std::uint32_t index, std::uint32_t capacity) {
  return NameFrom(capacity, [&](char* name, DWORD* length) {
    return RegEnumKeyExA(ToKey(key), index, name, length, nullptr, nullptr, nullptr, nullptr);
  });
}

RegistryName WinRegistry::ValueName(RegistryKey key, std::uint32_t index, std::uint32_t capacity) {
  return NameFrom(capacity, [&](char* name, DWORD* length) {
    return RegEnumValueA(ToKey(key), index, name, length, nullptr, nullptr, nullptr, nullptr);
  });
}

std::int32_t WinRegistry::DeleteKey(RegistryKey key, TextView subKey) {
  return RegDeleteKeyA(ToKey(key), Narrow(subKey).c_str());
}

}  // namespace pointalk::win32
