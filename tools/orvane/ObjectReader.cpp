#include "tools/orvane/ObjectReader.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "tools/orvane/JsonDocument.h"
#include "tools/orvane/Text.h"

namespace tool {

using platform::Color;

namespace {

std::string mustBe(std::string_view what, const nlohmann::json& value) {
  return "must be " + std::string(what) + ", not " + std::string(kindOf(value));
}

std::string badColor(const std::string& text) {
  return "must be a colour such as \"#3aa0ff\", not " + inQuotes(text);
}

}  // namespace

ObjectReader::ObjectReader(Problems& problems, const Json& value, std::string place)
    : problems_(problems), place_(std::move(place)) {
  if (value.is_object())
    object_ = &value;
  else
    problem(mustBe("an object", value));
}

std::string ObjectReader::place(std::string_view member) const {
  return place_ + (place_.empty() ? "" : ".") + oneLine(member);
}

std::string ObjectReader::place(std::string_view member, std::size_t index) const {
  return place(member) + '[' + std::to_string(index) + ']';
}

void ObjectReader::problem(std::string_view member, std::string text) {
  problems_.push_back({place(member), std::move(text)});
}

void ObjectReader::problem(std::string_view member, std::size_t index, std::string text) {
  problems_.push_back({place(member, index), std::move(text)});
}

void ObjectReader::problem(std::string text) { problems_.push_back({place_, std::move(text)}); }

const ObjectReader::Json* ObjectReader::find(std::string_view member) {
  known_.push_back(member);
  if (!object_) return nullptr;
  const auto found = object_->find(std::string(member));
  return found == object_->end() ? nullptr : &*found;
}

const ObjectReader::Json* ObjectReader::require(std::string_view member) {
  const Json* value = find(member);
  if (!value && object_) problem(member, "is missing");
  return value;
}

const ObjectReader::Json* ObjectReader::typed(std::string_view member,
                                              bool (Json::*is)() const noexcept,
                                              std::string_view what) {
  const Json* value = find(member);
  if (!value || (value->*is)()) return value;
  problem(member, mustBe(what, *value));
  return nullptr;
}

std::string ObjectReader::text(std::string_view member, std::string fallback) {
  const Json* value = typed(member, &Json::is_string, "a text");
  return value ? value->get<std::string>() : std::move(fallback);
}

std::string ObjectReader::requiredText(std::string_view member) {
  const Json* value = require(member);
  if (!value) return {};
  if (!value->is_string())
    problem(member, mustBe("a text", *value));
  else if (value->get_ref<const std::string&>().empty())
    problem(member, "must not be empty");
  else
    return value->get<std::string>();
  return {};
}

std::optional<std::string> ObjectReader::optionalText(std::string_view member) {
  const Json* value = find(member);
  if (!value || value->is_null()) return std::nullopt;
  if (value->is_string()) return value->get<std::string>();
  problem(member, mustBe("a text or null", *value));
  return std::nullopt;
}

bool ObjectReader::boolean(std::string_view member, bool fallback) {
  const Json* value = typed(member, &Json::is_boolean, "true or false");
  return value ? value->get<bool>() : fallback;
}

double ObjectReader::number(std::string_view member, double fallback, Range range) {
  const Json* value = typed(member, &Json::is_number, "a number");
  if (!value) return fallback;
  const double number = value->get<double>();
  if (number >= range.low && number <= range.high) return number;
  problem(member, "must be in " + rangeText(range.low, range.high) + ", not " + numberText(number));
  return fallback;
}

double ObjectReader::weight(std::string_view member, double fallback) {
  const Json* value = typed(member, &Json::is_number, "a number");
  if (!value) return fallback;
  const double number = value->get<double>();
  // Far beyond any use, but sums and quotients of such weights are finite.
  if (number >= 1e-6 && number <= 1e6) return number;
  problem(member, number <= 0
                      ? "must be above 0, not " + numberText(number)
                      : "must be in " + rangeText(1e-6, 1e6) + ", not " + numberText(number));
  return fallback;
}

std::int64_t ObjectReader::whole(std::string_view member, std::int64_t fallback, Range range) {
  const Json* value = typed(member, &Json::is_number, "a whole number");
  if (!value) return fallback;
  const double number = value->get<double>();
  if (std::trunc(number) != number) {
    problem(member, "must be a whole number, not " + numberText(number));
    return fallback;
  }
  if (number < range.low || number > range.high) {
    problem(member,
            "must be in " + rangeText(range.low, range.high) + ", not " + numberText(number));
    return fallback;
  }
  return static_cast<std::int64_t>(number);
}

std::optional<Color> ObjectReader::color(std::string_view member) {
  const auto text = optionalText(member);
  if (!text) return std::nullopt;
  const auto color = Color::parse(*text);
  if (!color) problem(member, badColor(*text));
  return color;
}

void ObjectReader::list(std::string_view member,
                        const std::function<void(const Json&, std::size_t)>& entry) {
  // Far more than any design has; each entry may cost a problem.
  constexpr std::size_t limit = 20000;
  const Json* value = typed(member, &Json::is_array, "a list");
  if (!value) return;
  if (value->size() > limit)
    return problem(member, "must hold at most " + std::to_string(limit) + " entries, not " +
                               std::to_string(value->size()));
  for (std::size_t i = 0; i < value->size(); ++i) entry((*value)[i], i);
}

bool ObjectReader::checkEntry(std::string_view member, std::size_t index, const Json& entry,
                              bool right, std::string_view what) {
  if (!right) problem(member, index, mustBe(what, entry));
  return right;
}

std::vector<std::string> ObjectReader::texts(std::string_view member) {
  std::vector<std::string> texts;
  list(member, [&](const Json& entry, std::size_t index) {
    // A wrong entry still takes its place, so that the places of the others stay right.
    const bool right = checkEntry(member, index, entry, entry.is_string(), "a text");
    texts.push_back(right ? entry.get<std::string>() : std::string());
  });
  return texts;
}

std::vector<std::optional<std::string>> ObjectReader::optionalTexts(std::string_view member) {
  std::vector<std::optional<std::string>> texts;
  list(member, [&](const Json& entry, std::size_t index) {
    const bool right =
        entry.is_null() || checkEntry(member, index, entry, entry.is_string(), "a text or null");
    texts.push_back(right && !entry.is_null() ? std::optional(entry.get<std::string>())
                                              : std::nullopt);
  });
  return texts;
}

std::vector<bool> ObjectReader::booleans(std::string_view member,
                                         const std::vector<bool>& fallback) {
  std::vector<bool> booleans;
  list(member, [&](const Json& entry, std::size_t index) {
    const bool right = checkEntry(member, index, entry, entry.is_boolean(), "true or false");
    booleans.push_back(right && entry.get<bool>());
  });
  return object_ && object_->contains(std::string(member)) ? booleans : fallback;
}

std::vector<Color> ObjectReader::colors(std::string_view member) {
  std::vector<Color> colors;
  list(member, [&](const Json& entry, std::size_t index) {
    if (!checkEntry(member, index, entry, entry.is_string(), "a text")) return;
    const std::string text = entry.get<std::string>();
    if (const auto color = Color::parse(text))
      colors.push_back(*color);
    else
      problem(member, index, badColor(text));
  });
  return colors;
}

void ObjectReader::finish() {
  if (!object_) return;
  for (const auto& [member, value] : object_->items())
    if (std::find(known_.begin(), known_.end(), member) == known_.end())
      problem(member, "unknown field");
}

}  // namespace tool
