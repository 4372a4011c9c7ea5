#include "sim/script_node.h"

#include <charconv>
#include <cmath>
#include <system_error>

#include "sim/code_page.h"
#include "sim/script_error.h"
#include "sim/utf8.h"

namespace pointalk::sim {
namespace {

// Up to here a double holds every whole number exactly.
constexpr double kLargestExact = 9007199254740992;

bool IsPlainKey(std::string_view key) {
  return !key.empty() && std::all_of(key.begin(), key.end(), [](char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
  });
}

}  // namespace

std::string ScriptNode::Place() const {
  if (parent_ == nullptr) return {};
  std::string place = parent_->Place();
  if (parent_->json_->kind == Json::Kind::kList) return place + '[' + std::to_string(index_) + ']';
  if (!IsPlainKey(key_)) {
    place += '[';
    AppendQuoted(key_, place);
    return place + ']';
  }
  if (!place.empty()) place += '.';
  return place.append(key_);
}

void ScriptNode::Fail(const std::string& what) const {
  const std::string place = Place();
  throw ScriptError{(place.empty() ? "script" : place) + ": " + what};
}

bool ScriptNode::Boolean() const {
  if (json_->kind != Json::Kind::kBoolean) Fail("must be true or false");
  return json_->boolean;
}

void ScriptNode::BeTrue() const {
  if (json_->kind != Json::Kind::kBoolean || !json_->boolean) Fail("must be true");
}

double ScriptNode::Number() const {
  if (json_->kind != Json::Kind::kNumber) Fail("must be a number");
  return json_->number;
}

double ScriptNode::NotNegative() const {
  const double number = Number();
  if (number < 0) Fail("must not be negative");
  return number;
}

std::int64_t ScriptNode::Whole(std::int64_t least, std::int64_t most) const {
  const auto fail = [&] {
    Fail("must be a whole number from " + std::to_string(least) + " to " + std::to_string(most));
  };
  const double number = Number();
  const std::string& literal = json_->text;
  std::int64_t whole = 0;
  const auto end = std::from_chars(literal.data(), literal.data() + literal.size(), whole);
  if (end.ptr != literal.data() + literal.size()) {
    if (std::trunc(number) != number || std::abs(number) > kLargestExact) fail();
    whole = static_cast<std::int64_t>(number);
  } else if (end.ec != std::errc()) {
    fail();
  }
  if (whole < least || whole > most) fail();
  return whole;
}

Text ScriptNode::TextOf(std::string_view utf8, bool nulsAllowed) const {
  if (HasSupplementaryCharacters(utf8)) Fail("holds a character beyond U+FFFF");
  if (!nulsAllowed && utf8.find('\0') != std::string_view::npos) Fail("holds a NUL");
  return FromUtf8(utf8);
}

std::string_view ScriptNode::Word() const {
  if (json_->kind != Json::Kind::kText) Fail("must be a text");
  return json_->text;
}

Text ScriptNode::Unicode() const { return TextOf(Word(), false); }

Text ScriptNode::Ansi() const { return ThroughAnsi(Unicode()); }

Text ScriptNode::AnsiWithNuls() const { return ThroughAnsi(TextOf(Word(), true)); }

Text ScriptNode::Key() const { return TextOf(key_, false); }

std::size_t ScriptNode::ItemCount() const {
  if (json_->kind != Json::Kind::kList) Fail("must be a list");
  return json_->values.size();
}

ScriptNode ScriptNode::Item(std::size_t index) const { return {json_->values[index], *this, {}, index}; }

std::size_t ScriptNode::MemberCount() const {
  if (json_->kind != Json::Kind::kObject) Fail("must be an object");
  std::vector<std::string_view> keys(json_->keys.begin(), json_->keys.end());
  std::sort(keys.begin(), keys.end());
  const auto twice = std::adjacent_find(keys.begin(), keys.end());
  if (twice != keys.end()) {
    std::string message = "has the key ";
    AppendQuoted(*twice, message);
    Fail(message + " twice");
  }
  return json_->values.size();
}

ScriptNode ScriptNode::Member(std::size_t index) const {
  return {json_->values[index], *this, json_->keys[index], index};
}

}  // namespace pointalk::sim
