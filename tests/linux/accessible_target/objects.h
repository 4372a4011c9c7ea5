// Accessible objects as a test describes them, true or not.
#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

namespace pointalk::target {

// How a question is answered when not by the truth.
enum class Lie {
  kNone,
  kError,
  kSilence,    // no answer at all
  kWrongType,  // another type than the question has
  kNoBody,     // an answer without anything in it
  kDeath,      // the program ends instead
};

struct Object {
  std::string id;
  std::string parent;                       // the id of another, itself, or of none that there is
  std::array<std::int32_t, 4> rectangle{};  // left, top, right, bottom on the screen
  std::uint32_t role = 0;
  std::vector<int> states;  // bits
  std::string name;
  std::string description;
  bool hasValue = false;
  double value = 0;
  bool hasText = false;
  std::string text;
  std::int64_t characters = -1;     // that it says it has; those of the text when below 0
  std::string childAt;              // the id that every point gives, instead of what lies there
  bool isEndless = false;           // every point gives a new object within, and so does every parent
  std::map<std::string, Lie> lies;  // by the question's member, or the property's name
};

class Objects {
 public:
  // From the words of a test; replaces one of the same id.
  Object& Put(const nlohmann::json& words);

  // Null where there is none. Objects of endless ones are made as they are asked for.
  const Object* Find(const std::string& path);
  const Object* FindById(const std::string& id) const;
  static std::string PathOf(const std::string& id);

  std::vector<std::string> ChildrenOf(const std::string& id) const;
  // The id of the topmost child at a point; empty where there is none.
  std::string ChildAt(const Object& object, std::int32_t x, std::int32_t y);

 private:
  std::string OneMore(const Object& endless);

  std::vector<Object> all_;  // from the lowest to the topmost
  int made_ = 0;
};

// The place of a character in a text of cells of 8 by 16 pixels; -1 beside it.
std::int32_t OffsetAt(const Object& object, std::int32_t x, std::int32_t y);
// The line around it, with its beginning and its end.
struct Line {
  std::string text;
  std::int32_t start = 0;
  std::int32_t end = 0;
};
Line LineAt(const std::string& text, std::int32_t offset);

}  // namespace pointalk::target
