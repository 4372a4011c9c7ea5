// A value of the script together with its place, so that whoever reads it can say what is wrong and where.
#pragma once

#include <algorithm>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include "sim/json.h"
#include "text/text.h"

namespace pointalk::sim {

// A node refers to the node that it was reached from, which has to outlive it. Every question throws
// ScriptError where the value is not of the kind that is asked for.
class ScriptNode {
 public:
  explicit ScriptNode(const Json& root) : json_(&root) {}

  [[noreturn]] void Fail(const std::string& what) const;

  bool IsNull() const { return json_->kind == Json::Kind::kNull; }
  bool IsNumber() const { return json_->kind == Json::Kind::kNumber; }
  const Json& Value() const { return *json_; }

  bool Boolean() const;
  void BeTrue() const;
  double Number() const;
  double NotNegative() const;
  std::int64_t Whole(std::int64_t least, std::int64_t most) const;
  template <typename Integer> Integer Whole(Integer least = std::numeric_limits<Integer>::min()) const {
    return static_cast<Integer>(Whole(static_cast<std::int64_t>(least),
                                      static_cast<std::int64_t>(std::numeric_limits<Integer>::max())));
  }

  // As UTF-16; through the machine's code page where the platform gives it to the program in 8 bits.
  Text Unicode() const;
  Text Ansi() const;
  Text AnsiWithNuls() const;

  // The text itself, for a comparison with words of the format.
  std::string_view Word() const;

  // The key under which the value stands, as a text.
  Text Key() const;
  std::string_view KeyWord() const { return key_; }

  // The items of a list.
  std::size_t ItemCount() const;
  ScriptNode Item(std::size_t index) const;
  template <typename Read> auto Items(Read read) const {
    std::vector<decltype(read(*this))> items;
    const std::size_t count = ItemCount();
    items.reserve(count);
    for (std::size_t i = 0; i < count; ++i) items.push_back(read(Item(i)));
    return items;
  }

  // The values of an object, whose keys are all different.
  std::size_t MemberCount() const;
  ScriptNode Member(std::size_t index) const;

 private:
  ScriptNode(const Json& json, const ScriptNode& parent, std::string_view key, std::size_t index)
      : json_(&json), parent_(&parent), key_(key), index_(index) {}

  std::string Place() const;
  Text TextOf(std::string_view utf8, bool nulsAllowed) const;

  const Json* json_;
  const ScriptNode* parent_ = nullptr;
  std::string_view key_;   // in an object
  std::size_t index_ = 0;  // in a list
};

// What a key of an object means: how its value is read into what the object stands for.
template <typename Target> struct KeyReader {
  std::string_view key;
  void (*read)(const ScriptNode& value, Target& target);
};

// Reads every value of an object by the table; a key that is not in it is an error.
template <typename Target, std::size_t count>
void ReadKeys(const ScriptNode& node, const KeyReader<Target> (&table)[count], Target& target) {
  const std::size_t members = node.MemberCount();
  for (std::size_t i = 0; i < members; ++i) {
    const ScriptNode value = node.Member(i);
    const auto* const reader =
        std::find_if(std::begin(table), std::end(table),
                     [&](const KeyReader<Target>& entry) { return entry.key == value.KeyWord(); });
    if (reader == std::end(table)) value.Fail("unknown key");
    reader->read(value, target);
  }
}

}  // namespace pointalk::sim
