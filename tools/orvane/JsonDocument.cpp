#include "tools/orvane/JsonDocument.h"

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <list>
#include <utility>
#include <vector>

#include "foundation/UnicodeText.h"
#include "tools/orvane/Text.h"

namespace tool {

using nlohmann::json;

namespace {

constexpr int deepest = 64;

/// Where the byte at `offset` is, as editors count: from 1, columns in characters.
std::string placeOf(std::string_view text, std::size_t offset) {
  offset = std::min(offset, text.size());
  const std::string_view before = text.substr(0, offset);
  const auto line = 1 + std::count(before.begin(), before.end(), '\n');
  const std::size_t lineStart = before.rfind('\n') + 1;
  const std::size_t column = 1 + foundation::countCodePoints(before.substr(lineStart));
  return "line " + std::to_string(line) + ", column " + std::to_string(column);
}

/// Offset of the bracket that opens one level too many, or npos.
std::size_t tooDeep(std::string_view text) {
  int depth = 0;
  bool inString = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (inString) {
      if (c == '\\')
        ++i;
      else if (c == '"')
        inString = false;
    } else if (c == '"') {
      inString = true;
    } else if (c == '[' || c == '{') {
      if (++depth > deepest) return i;
    } else if (c == ']' || c == '}') {
      --depth;
    }
  }
  return std::string_view::npos;
}

std::string unexpected(std::string_view text, std::size_t offset) {
  if (offset >= text.size()) return "the file ends in the middle of a value";
  const auto byte = static_cast<unsigned char>(text[offset]);
  if (byte > 0x20 && byte < 0x7F) return std::string("unexpected ") + text[offset];
  char name[24];
  std::snprintf(name, sizeof name, "unexpected byte 0x%02X", byte);
  return name;
}

/// Builds the value as it is read, without recursion, and looks out for repeated members.
class Builder : public nlohmann::json_sax<json> {
 public:
  Builder(std::string_view text, Problems& problems) : text_(text), problems_(problems) {}

  json takeRoot() { return std::move(root_); }

  bool null() override { return add(nullptr); }
  bool boolean(bool value) override { return add(value); }
  bool number_integer(number_integer_t value) override { return add(value); }
  bool number_unsigned(number_unsigned_t value) override { return add(value); }
  bool number_float(number_float_t value, const string_t&) override { return add(value); }
  bool string(string_t& value) override { return add(std::move(value)); }
  bool binary(binary_t&) override { return false; }
  bool start_object(std::size_t) override { return open(json::object()); }
  bool start_array(std::size_t) override { return open(json::array()); }
  bool end_object() override { return close(); }
  bool end_array() override { return close(); }

  bool key(string_t& name) override {
    Level& level = levels_.back();
    level.name = std::move(name);
    if (level.value->contains(level.name))
      problems_.push_back({place(), "this member is given twice"});
    return true;
  }

  bool parse_error(std::size_t position, const std::string&,
                   const nlohmann::detail::exception& error) override {
    // The position counts the byte that could not be used.
    const std::size_t offset = position == 0 ? 0 : position - 1;
    const bool outOfRange = error.id == 406;
    problems_ = {{placeOf(text_, offset),
                  outOfRange ? "this number is too large" : unexpected(text_, offset)}};
    return false;
  }

 private:
  struct Level {
    json* value;
    /// The member that is being read.
    std::string name;
  };

  bool add(json value) {
    put(std::move(value));
    return true;
  }

  json* put(json value) {
    if (levels_.empty()) {
      root_ = std::move(value);
      return &root_;
    }
    Level& level = levels_.back();
    if (level.value->is_array()) return &level.value->emplace_back(std::move(value));
    if (level.value->contains(level.name)) {
      // Read to its end like any other, but no part of the result.
      return &discarded_.emplace_back(std::move(value));
    }
    return &((*level.value)[level.name] = std::move(value));
  }

  bool open(json value) {
    levels_.push_back({put(std::move(value)), {}});
    return true;
  }

  bool close() {
    levels_.pop_back();
    return true;
  }

  std::string place() const {
    std::string place;
    for (const Level& level : levels_) {
      if (level.value->is_array()) {
        place += '[' + std::to_string(level.value->size() - 1) + ']';
      } else {
        if (!place.empty()) place += '.';
        place += oneLine(level.name);
      }
    }
    return place;
  }

  std::string_view text_;
  Problems& problems_;
  json root_;
  std::list<json> discarded_;
  std::vector<Level> levels_;
};

}  // namespace

json parseJson(std::string_view text, Problems& problems) {
  const std::size_t bracket = tooDeep(text);
  if (bracket != std::string_view::npos) {
    problems = {{placeOf(text, bracket), "nested too deeply"}};
    return nullptr;
  }
  Builder builder(text, problems);
  if (!json::sax_parse(text.begin(), text.end(), &builder)) return nullptr;
  return builder.takeRoot();
}

std::string_view kindOf(const json& value) {
  switch (value.type()) {
    case json::value_t::null:
      return "null";
    case json::value_t::object:
      return "an object";
    case json::value_t::array:
      return "a list";
    case json::value_t::string:
      return "a text";
    case json::value_t::boolean:
      return "true or false";
    default:
      return "a number";
  }
}

}  // namespace tool
