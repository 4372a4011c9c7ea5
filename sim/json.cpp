#include "sim/json.h"

#include <algorithm>
#include <cstdint>
#include <nlohmann/json.hpp>
#include <utility>

#include "sim/script_error.h"
#include "sim/utf8.h"

namespace pointalk::sim {
namespace {

// Deeper than any script needs, and shallow enough for whoever walks the tree by recursion.
constexpr std::size_t kDeepest = 200;

std::string LineAndColumn(std::string_view source, std::size_t offset) {
  const std::string_view before = source.substr(0, offset);
  const auto line = std::count(before.begin(), before.end(), '\n') + 1;
  const std::size_t lineStart = before.rfind('\n');
  const std::size_t column = lineStart == std::string_view::npos ? offset + 1 : offset - lineStart;
  return "line " + std::to_string(line) + ", column " + std::to_string(column);
}

// The library's message without its own number, the place, and the token, which may hold any bytes.
std::string ReasonOf(std::string message) {
  message.erase(0, std::min(message.size(), message.find("] ") + 2));
  if (message.starts_with("parse error at ")) {
    message.erase(0, std::min(message.size(), message.find(": ") + 2));
  }
  message.erase(std::min(message.size(), message.find("; last read: ")));
  std::replace_if(
      message.begin(), message.end(), [](char c) { return c < ' ' || c > '~'; }, '?');
  return message;
}

class TreeBuilder final : public nlohmann::json_sax<nlohmann::json> {
 public:
  explicit TreeBuilder(std::string_view source) : source_(source) {}

  Json Take() { return std::move(root_); }

  bool null() override {
    Add(Json::Kind::kNull);
    return true;
  }

  bool boolean(bool value) override {
    Add(Json::Kind::kBoolean).boolean = value;
    return true;
  }

  // A zero comes here only as "-0".
  bool number_integer(std::int64_t value) override {
    return number_float(static_cast<double>(value), value == 0 ? "-0" : std::to_string(value));
  }

  bool number_unsigned(std::uint64_t value) override {
    return number_float(static_cast<double>(value), std::to_string(value));
  }

  bool number_float(double value, const std::string& literal) override {
    Json& number = Add(Json::Kind::kNumber);
    number.number = value;
    number.text = literal;
    return true;
  }

  bool string(std::string& value) override {
    Add(Json::Kind::kText).text = std::move(value);
    return true;
  }

  bool binary(nlohmann::json::binary_t&) override { return false; }  // not in a text

  bool start_object(std::size_t) override { return Open(Json::Kind::kObject); }
  bool start_array(std::size_t) override { return Open(Json::Kind::kList); }
  bool end_object() override { return Close(); }
  bool end_array() override { return Close(); }

  bool key(std::string& name) override {
    open_.back()->keys.push_back(std::move(name));
    return true;
  }

  bool parse_error(std::size_t position, const std::string&,
                   const nlohmann::detail::exception& error) override {
    throw ScriptError{LineAndColumn(source_, position > 0 ? position - 1 : 0) + ": " +
                      ReasonOf(error.what())};
  }

 private:
  bool Open(Json::Kind kind) {
    if (open_.size() == kDeepest) throw ScriptError{"script: lists and objects nest too deeply"};
    open_.push_back(&Add(kind));
    return true;
  }

  bool Close() {
    open_.pop_back();
    return true;
  }

  // The pointer to an open list or object stays valid: no sibling is added before it is closed.
  Json& Add(Json::Kind kind) {
    Json& json = open_.empty() ? root_ : open_.back()->values.emplace_back();
    json.kind = kind;
    return json;
  }

  std::string_view source_;
  Json root_;
  std::vector<Json*> open_;
};

}  // namespace

Json ParseJson(std::string_view source) {
  if (source.starts_with("\xEF\xBB\xBF")) throw ScriptError{"line 1, column 1: a byte order mark"};
  // The library takes a NUL for the end of its input.
  if (const std::size_t nul = source.find('\0'); nul != std::string_view::npos) {
    throw ScriptError{LineAndColumn(source, nul) + ": a NUL byte"};
  }
  TreeBuilder builder(source);
  nlohmann::json::sax_parse(source.begin(), source.end(), &builder);
  return builder.Take();
}

void AppendCompact(const Json& json, std::string& out) {
  switch (json.kind) {
    case Json::Kind::kNull: out += "null"; break;
    case Json::Kind::kBoolean: out += json.boolean ? "true" : "false"; break;
    case Json::Kind::kNumber: out += json.text; break;
    case Json::Kind::kText: AppendQuoted(json.text, out); break;
    case Json::Kind::kList:
    case Json::Kind::kObject: {
      const bool isObject = json.kind == Json::Kind::kObject;
      out += isObject ? '{' : '[';
      for (std::size_t i = 0; i < json.values.size(); ++i) {
        if (i > 0) out += ',';
        if (isObject) {
          AppendQuoted(json.keys[i], out);
          out += ':';
        }
        AppendCompact(json.values[i], out);
      }
      out += isObject ? '}' : ']';
      break;
    }
  }
}

}  // namespace pointalk::sim
