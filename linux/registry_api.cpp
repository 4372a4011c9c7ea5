#include "linux/registry_api.h"

#include <algorithm>

#include "linux/ansi.h"
#include "linux/auto_start_entry.h"
#include "text/letters.h"

namespace pointalk::linux {
namespace {

// Codes of the registry functions.
constexpr std::int32_t kSuccess = 0;
constexpr std::int32_t kMissing = 2;
constexpr std::int32_t kDenied = 5;
constexpr std::int32_t kWrongHandle = 6;
constexpr std::int32_t kMoreData = 234;
constexpr std::int32_t kNoMoreItems = 259;

constexpr std::uint32_t kTextType = 1;
constexpr RegistryKey kLocalMachine = 0x80000002;
constexpr RegistryKey kRunKey = 1;
constexpr TextView kRunPath = u"software\\microsoft\\windows\\currentversion\\run";
constexpr TextView kValueName = u"Pointalk";
constexpr TextView kValueData = u"Pointalk.exe";

std::vector<std::byte> ValueBytes() {
  std::vector<std::byte> bytes = LinuxAnsi().ToBytes(kValueData);
  bytes.push_back(std::byte{0});
  return bytes;
}

// The code for a value of an open key: success where it is there.
std::int32_t Look(RegistryKey key, TextView name) {
  if (key != kRunKey) return kWrongHandle;
  return ToLower(name) == ToLower(kValueName) && StartsWithSession() ? kSuccess : kMissing;
}

}  // namespace

RegistryOpening LinuxRegistry::OpenKey(RegistryKey root, TextView subKey) {
  if (root == kLocalMachine && ToLower(subKey) == kRunPath) return {kSuccess, kRunKey};
  return {kMissing, 0};
}

std::int32_t LinuxRegistry::CloseKey(RegistryKey key) { return key == kRunKey ? kSuccess : kWrongHandle; }

std::int32_t LinuxRegistry::SetValue(RegistryKey key, TextView name, std::uint32_t /*type*/,
                                     const std::vector<std::byte>& /*data*/) {
  if (key != kRunKey) return kWrongHandle;
  return ToLower(name) == ToLower(kValueName) && StartWithSession() ? kSuccess : kDenied;
}

RegistryValueSize LinuxRegistry::QueryValueSize(RegistryKey key, TextView name) {
  if (const std::int32_t code = Look(key, name); code != kSuccess) return {code, 0, 0};
  return {kSuccess, kTextType, static_cast<std::uint32_t>(ValueBytes().size())};
}

RegistryValueData LinuxRegistry::QueryValue(RegistryKey key, TextView name, std::uint32_t bytes) {
  if (const std::int32_t code = Look(key, name); code != kSuccess) return {code, 0, {}};
  std::vector<std::byte> data = ValueBytes();
  data.resize(std::min<std::size_t>(data.size(), bytes));
  return {kSuccess, kTextType, std::move(data)};
}

std::int32_t LinuxRegistry::DeleteValue(RegistryKey key, TextView name) {
  if (const std::int32_t code = Look(key, name); code != kSuccess) return code;
  return StartWithSessionNoMore() ? kSuccess : kDenied;
}

RegistryKeyInfo LinuxRegistry::QueryKey(RegistryKey key) {
  if (key != kRunKey) return {kWrongHandle, 0, 0, 0, 0};
  const bool there = StartsWithSession();
  return {kSuccess, 0, 0, there ? 1U : 0U, there ? static_cast<std::uint32_t>(kValueName.size()) : 0U};
}

RegistryName LinuxRegistry::SubKeyName(RegistryKey key, std::uint32_t /*index*/, std::uint32_t /*capacity*/) {
  return {key == kRunKey ? kNoMoreItems : kWrongHandle, {}};
}

RegistryEnumeratedValue LinuxRegistry::ValueAt(RegistryKey key, std::uint32_t index, std::uint32_t capacity) {
  if (key != kRunKey) return {kWrongHandle, {}, 0, {}};
  if (index != 0 || !StartsWithSession()) return {kNoMoreItems, {}, 0, {}};
  if (capacity <= kValueName.size()) return {kMoreData, {}, 0, {}};
  return {kSuccess, Text(kValueName), kTextType, ValueBytes()};
}

std::int32_t LinuxRegistry::DeleteKey(RegistryKey /*key*/, TextView /*subKey*/) { return kDenied; }

}  // namespace pointalk::linux
