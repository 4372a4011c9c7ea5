// A registry that answers with the codes that it is told, and writes down what it was asked.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "platform/registry_api.h"

namespace pointalk::testing {

class RecordedRegistry final : public RegistryApi {
 public:
  static constexpr std::int32_t kBadHandle = 6;  // what the platform says of a key that is not open

  // The codes of what is asked of an open key.
  struct Codes {
    std::int32_t create = 0;
    std::int32_t open = 0;     // of the first key that is opened,
    std::int32_t subOpen = 0;  // and of those below it
    std::int32_t set = 0;
    std::int32_t size = 0;
    std::int32_t data = 0;
    std::int32_t deleteValue = 0;
    std::int32_t info = 0;
    std::int32_t name = 0;       // of the first sub-key or value
    std::int32_t deleteKey = 0;  // of the first key that is opened,
    std::int32_t subDelete = 0;  // and of those below it
    std::int32_t close = 0;
  };

  Codes codes;
  std::vector<std::string> subKeys;             // of the first key that is opened
  std::vector<RegistryEnumeratedValue> values;  // of every key
  std::string calls;                            // parted by "; "

  RegistryOpening CreateKey(RegistryKey root, TextView subKey) override {
    Record("create", root, Shown(subKey));
    return Opened(root, codes.create);
  }
  RegistryOpening OpenKey(RegistryKey root, TextView subKey) override {
    Record("open", root, Shown(subKey));
    return Opened(root, lastKey_ == 0 ? codes.open : codes.subOpen);
  }
  std::int32_t CloseKey(RegistryKey key) override {
    Record("close", key);
    return Answer(key, codes.close);
  }
  std::int32_t SetValue(RegistryKey key, TextView name, std::uint32_t type,
                        const std::vector<std::byte>& data) override {
    Record("set", key, Shown(name) + " " + std::to_string(type) + " " + Shown(data));
    return Answer(key, codes.set);
  }
  RegistryValueSize QueryValueSize(RegistryKey key, TextView name) override {
    Record("size", key, Shown(name));
    const std::int32_t code = Answer(key, codes.size);
    if (code != 0) return {code, 0, 0};
    return {0, values[0].type, static_cast<std::uint32_t>(values[0].data.size())};
  }
  RegistryValueData QueryValue(RegistryKey key, TextView name, std::uint32_t bytes) override {
    Record("data", key, Shown(name) + " " + std::to_string(bytes));
    const std::int32_t code = Answer(key, codes.data);
    if (code != 0) return {code, 0, {}};
    return {0, values[0].type, values[0].data};
  }
  std::int32_t DeleteValue(RegistryKey key, TextView name) override {
    Record("delete value", key, Shown(name));
    return Answer(key, codes.deleteValue);
  }
  RegistryKeyInfo QueryKey(RegistryKey key) override {
    Record("info", key);
    const std::int32_t code = Answer(key, codes.info);
    if (code != 0) return {code, 0, 0, 0, 0};
    const std::size_t subKeyCount = key == kFirstKey ? subKeys.size() : 0;
    return {0, static_cast<std::uint32_t>(subKeyCount), 20, static_cast<std::uint32_t>(values.size()), 30};
  }
  RegistryName SubKeyName(RegistryKey key, std::uint32_t index, std::uint32_t capacity) override {
    Record("name", key, std::to_string(index) + " " + std::to_string(capacity));
    const std::int32_t code = Answer(key, index == 0 ? codes.name : 0);
    if (code != 0) return {code, {}};
    return {0, Text(subKeys[index].begin(), subKeys[index].end())};
  }
  RegistryEnumeratedValue ValueAt(RegistryKey key, std::uint32_t index, std::uint32_t capacity) override {
    Record("value", key, std::to_string(index) + " " + std::to_string(capacity));
    const std::int32_t code = Answer(key, index == 0 ? codes.name : 0);
    if (code != 0) return {code, {}, 0, {}};
    return values[index];
  }
  std::int32_t DeleteKey(RegistryKey key, TextView subKey) override {
    Record("delete key", key, Shown(subKey));
    return Answer(key, key == kFirstKey ? codes.deleteKey : codes.subDelete);
  }

 private:
  static constexpr RegistryKey kFirstKey = 1;
  static constexpr RegistryKey kLeftBehind = 99;  // what a key that did not open leaves is no key

  static std::int32_t Answer(RegistryKey key, std::int32_t code) { return key == 0 ? kBadHandle : code; }

  RegistryOpening Opened(RegistryKey root, std::int32_t code) {
    code = Answer(root, code);
    if (code != 0) return {code, kLeftBehind};
    return {0, ++lastKey_};
  }

  static std::string Shown(TextView text) { return "'" + std::string(text.begin(), text.end()) + "'"; }
  static std::string Shown(const std::vector<std::byte>& data) {
    std::string shown;
    for (const std::byte byte : data) {
      if (!shown.empty()) shown += '.';
      shown += std::to_string(std::to_integer<int>(byte));
    }
    return shown;
  }

  // Root keys are shown by the last digit of their numbers.
  void Record(const char* what, RegistryKey key, const std::string& more = {}) {
    if (!calls.empty()) calls += "; ";
    calls += what;
    calls += key >= 0x80000000 ? " root " + std::to_string(key - 0x80000000) : " " + std::to_string(key);
    if (!more.empty()) calls += " " + more;
  }

  RegistryKey lastKey_ = 0;
};

}  // namespace pointalk::testing
