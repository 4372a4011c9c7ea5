#include "win32/registry_api.h"

#include <windows.h>

#include <algorithm>
#include <cstring>
#include <exception>
#include <string>
#include <utility>

#include "win32/ansi.h"
#include "win32/wide_text.h"

namespace pointalk::win32 {
namespace {

constexpr std::uint32_t kLongestName = 64 * 1024;  // characters
constexpr DWORD kLongestKeyClass = 1024;           // characters

// The numbers of the root keys have 32 bits, and as handles of 64 their sign is carried on.
HKEY ToKey(RegistryKey key) {
  const bool isRoot = key >= 0x80000000U && key <= 0xFFFFFFFFU;
  const auto number = isRoot ? static_cast<std::uint64_t>(static_cast<std::int32_t>(key)) : key;
  return reinterpret_cast<HKEY>(static_cast<std::uintptr_t>(number));
}

RegistryKey FromKey(HKEY key) { return reinterpret_cast<std::uintptr_t>(key); }

bool IsText(DWORD type) { return type == REG_SZ || type == REG_EXPAND_SZ || type == REG_MULTI_SZ; }

// The data as 8-bit programs have them: texts are kept in Unicode, all else as it is.
std::vector<std::byte> InEightBits(DWORD type, std::vector<std::byte> stored) {
  if (!IsText(type)) return stored;
  Text text(stored.size() / sizeof(char16_t), u'\0');
  std::memcpy(text.data(), stored.data(), text.size() * sizeof(char16_t));
  return WinAnsi().ToBytes(text);
}

// What the question gives, or the platform's code where there is no memory for a value, whose size is another
// program's choice.
template <typename Question> auto WithinMemory(Question ask) -> decltype(ask()) {
  try {
    return ask();
  } catch (const std::exception&) {
    decltype(ask()) failed;
    failed.code = ERROR_OUTOFMEMORY;
    return failed;
  }
}

RegistryValueData Stored(HKEY key, const std::wstring& name) {
  DWORD size = 0;
  LSTATUS code = RegQueryValueExW(key, name.c_str(), nullptr, nullptr, nullptr, &size);
  if (code != ERROR_SUCCESS) return {code, 0, {}};
  std::vector<std::byte> data(size);
  DWORD type = 0;
  code = RegQueryValueExW(key, name.c_str(), nullptr, &type, reinterpret_cast<BYTE*>(data.data()), &size);
  if (code != ERROR_SUCCESS) return {code, 0, {}};
  data.resize(std::min<std::size_t>(size, data.size()));
  return {code, type, InEightBits(type, std::move(data))};
}

std::wstring AsGiven(TextView name) { return Wide(ThroughAnsi(name)); }

std::wstring NameBuffer(std::uint32_t capacity) {
  return std::wstring(std::min(capacity, kLongestName), L'\0');
}

Text NameIn(const std::wstring& buffer, DWORD length) {
  return ThroughAnsi(FromWide(std::wstring_view(buffer).substr(0, length)));
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
  const RegistryValueData stored = WithinMemory([&] { return Stored(ToKey(key), AsGiven(name)); });
  return {stored.code, stored.type, static_cast<std::uint32_t>(stored.data.size())};
}

RegistryValueData WinRegistry::QueryValue(RegistryKey key, TextView name, std::uint32_t bytes) {
  RegistryValueData stored = WithinMemory([&] { return Stored(ToKey(key), AsGiven(name)); });
  if (stored.data.size() > bytes) return {ERROR_MORE_DATA, 0, {}};
  return stored;
}

std::int32_t WinRegistry::DeleteValue(RegistryKey key, TextView name) {
  return RegDeleteValueA(ToKey(key), Narrow(name).c_str());
}

RegistryKeyInfo WinRegistry::QueryKey(RegistryKey key) {
  wchar_t className[kLongestKeyClass];
  DWORD keyClassLength = kLongestKeyClass;
  DWORD subKeys = 0;
  DWORD longestSubKeyName = 0;
  DWORD values = 0;
  DWORD longestValueName = 0;
  const LSTATUS code =
      RegQueryInfoKeyW(ToKey(key), className, &keyClassLength, nullptr, &subKeys, &longestSubKeyName, nullptr,
                       &values, &longestValueName, nullptr, nullptr, nullptr);
  return {code, subKeys, longestSubKeyName, values, longestValueName};
}

RegistryName WinRegistry::SubKeyName(RegistryKey key, std::uint32_t index, std::uint32_t capacity) {
  std::wstring name = NameBuffer(capacity);
  auto length = static_cast<DWORD>(name.size());
  const LSTATUS code =
      RegEnumKeyExW(ToKey(key), index, name.data(), &length, nullptr, nullptr, nullptr, nullptr);
  if (code != ERROR_SUCCESS) return {code, {}};
  return {code, NameIn(name, length)};
}

RegistryEnumeratedValue WinRegistry::ValueAt(RegistryKey key, std::uint32_t index, std::uint32_t capacity) {
  return WithinMemory([&]() -> RegistryEnumeratedValue {
    std::wstring name = NameBuffer(capacity);
    auto length = static_cast<DWORD>(name.size());
    DWORD size = 0;
    LSTATUS code = RegEnumValueW(ToKey(key), index, name.data(), &length, nullptr, nullptr, nullptr, &size);
    if (code != ERROR_SUCCESS) return {code, {}, 0, {}};
    std::vector<std::byte> data(size);
    DWORD type = 0;
    length = static_cast<DWORD>(name.size());
    code = RegEnumValueW(ToKey(key), index, name.data(), &length, nullptr, &type,
                         reinterpret_cast<BYTE*>(data.data()), &size);
    if (code != ERROR_SUCCESS) return {code, {}, 0, {}};
    data.resize(std::min<std::size_t>(size, data.size()));
    return {code, NameIn(name, length), type, InEightBits(type, std::move(data))};
  });
}

std::int32_t WinRegistry::DeleteKey(RegistryKey key, TextView subKey) {
  return RegDeleteKeyA(ToKey(key), Narrow(subKey).c_str());
}

}  // namespace pointalk::win32
