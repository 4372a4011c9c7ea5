#include "tests/linux/accessible_target/objects.h"

#include <algorithm>
#include <deque>

namespace pointalk::target {
namespace {

constexpr std::int32_t kCharacterWidth = 8;
constexpr std::int32_t kLineHeight = 16;
constexpr char kPaths[] = "/org/a11y/atspi/accessible/";
constexpr char kNullPath[] = "/org/a11y/atspi/null";

Lie LieOf(const std::string& word) {
  if (word == "error") return Lie::kError;
  if (word == "silence") return Lie::kSilence;
  if (word == "wrong type") return Lie::kWrongType;
  if (word == "no body") return Lie::kNoBody;
  if (word == "death") return Lie::kDeath;
  return Lie::kNone;
}

bool Holds(const Object& object, std::int32_t x, std::int32_t y) {
  const auto& box = object.rectangle;
  return x >= box[0] && y >= box[1] && x < box[2] && y < box[3];
}

}  // namespace

Object& Objects::Put(const nlohmann::json& words) {
  Object object;
  object.id = words.at("id").get<std::string>();
  object.parent = words.value("parent", "root");
  object.rectangle = words.at("rectangle").get<std::array<std::int32_t, 4>>();
  object.role = words.value("role", 0U);
  object.states = words.value("states", std::vector<int>{});
  object.name = words.value("name", "");
  object.description = words.value("description", "");
  object.hasValue = words.contains("value");
  object.value = words.value("value", 0.0);
  object.hasText = words.contains("text");
  object.text = words.value("text", "");
  object.characters = words.value("characters", std::int64_t{-1});
  object.childAt = words.value("child at", "");
  object.isEndless = words.value("endless", false);
  const auto lies = words.value("lies", nlohmann::json::object());
  for (const auto& [member, lie] : lies.items()) object.lies[member] = LieOf(lie.get<std::string>());
  std::erase_if(all_, [&object](const Object& old) { return old.id == object.id; });
  return all_.emplace_back(std::move(object));
}

std::string Objects::PathOf(const std::string& id) { return id.empty() ? kNullPath : kPaths + id; }

const Object* Objects::FindById(const std::string& id) const {
  const auto found = std::find_if(all_.begin(), all_.end(), [&](const Object& one) { return one.id == id; });
  return found == all_.end() ? nullptr : &*found;
}

const Object* Objects::Find(const std::string& path) {
  return path.starts_with(kPaths) ? FindById(path.substr(sizeof kPaths - 1)) : nullptr;
}

std::vector<std::string> Objects::ChildrenOf(const std::string& id) const {
  std::vector<std::string> children;
  for (const Object& object : all_) {
    if (object.parent == id && object.id != id) children.push_back(object.id);
  }
  return children;
}

std::string Objects::ChildAt(const Object& object, std::int32_t x, std::int32_t y) {
  if (object.isEndless) return OneMore(object);
  if (!object.childAt.empty()) return object.childAt;
  for (auto child = all_.rbegin(); child != all_.rend(); ++child) {
    if (child->parent == object.id && child->id != object.id && Holds(*child, x, y)) return child->id;
  }
  return {};
}

std::string Objects::OneMore(const Object& endless) {
  Object more = endless;
  more.id = "more" + std::to_string(++made_);
  more.parent = more.id;
  all_.push_back(more);
  return more.id;
}

std::int32_t OffsetAt(const Object& object, std::int32_t x, std::int32_t y) {
  const std::int32_t line = (y - object.rectangle[1]) / kLineHeight;
  const std::int32_t column = (x - object.rectangle[0]) / kCharacterWidth;
  std::size_t start = 0;
  for (std::int32_t passed = 0; passed < line; ++passed) {
    start = object.text.find('\n', start);
    if (start == std::string::npos) return -1;
    ++start;
  }
  const std::size_t end = std::min(object.text.find('\n', start), object.text.size());
  const std::size_t offset = start + static_cast<std::size_t>(std::max(column, 0));
  return offset < end ? static_cast<std::int32_t>(offset) : -1;
}

Line LineAt(const std::string& text, std::int32_t offset) {
  const auto place =
      static_cast<std::size_t>(std::clamp<std::int64_t>(offset, 0, static_cast<std::int64_t>(text.size())));
  const std::size_t before = place == 0 ? std::string::npos : text.rfind('\n', place - 1);
  const std::size_t start = before == std::string::npos ? 0 : before + 1;
  const std::size_t end = std::min(text.find('\n', place), text.size());
  return {text.substr(start, end - start), static_cast<std::int32_t>(start), static_cast<std::int32_t>(end)};
}

}  // namespace pointalk::target
