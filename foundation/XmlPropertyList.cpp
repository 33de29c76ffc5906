#include "foundation/XmlPropertyList.h"

#include <expat.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <memory>
#include <vector>

#include "foundation/UnicodeText.h"

namespace foundation {

using platform::PropertyList;

namespace {

/// Roughly what an entry of a dictionary takes beside its value.
constexpr std::uint64_t entrySize = 80;

enum class Element { plist, dict, array, key, string, integer, real, data, date, yes, no };

std::optional<Element> elementNamed(std::string_view name) {
  static constexpr std::pair<std::string_view, Element> names[] = {
      {"plist", Element::plist}, {"dict", Element::dict},     {"array", Element::array},
      {"key", Element::key},     {"string", Element::string}, {"integer", Element::integer},
      {"real", Element::real},   {"data", Element::data},     {"date", Element::date},
      {"true", Element::yes},    {"false", Element::no},
  };
  for (const auto& [known, element] : names)
    if (known == name) return element;
  return std::nullopt;
}

bool isCollection(Element element) { return element == Element::dict || element == Element::array; }

bool isSpace(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; }

std::string_view trimmed(std::string_view text) {
  while (!text.empty() && isSpace(text.front())) text.remove_prefix(1);
  while (!text.empty() && isSpace(text.back())) text.remove_suffix(1);
  return text;
}

// Values from their texts

std::optional<PropertyList> integerOf(std::string_view text) {
  const bool isNegative = text.starts_with('-');
  if (isNegative || text.starts_with('+')) text.remove_prefix(1);
  const bool isHex = text.starts_with("0x") || text.starts_with("0X");
  if (isHex) text.remove_prefix(2);
  std::uint64_t size = 0;
  const auto [end, problem] =
      std::from_chars(text.data(), text.data() + text.size(), size, isHex ? 16 : 10);
  if (problem != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return PropertyList(static_cast<std::int64_t>(isNegative ? std::uint64_t{0} - size : size));
}

std::optional<PropertyList> realOf(std::string_view text) {
  if (text.starts_with('+')) text.remove_prefix(1);
  double value = 0;
  const auto [end, problem] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (end != text.data() + text.size() || text.empty()) return std::nullopt;
  if (problem == std::errc::result_out_of_range) {
    // Too far from 0 or too near to it.
    const bool isNear = text.find("e-") != text.npos || text.find("E-") != text.npos;
    value = std::copysign(isNear ? 0.0 : INFINITY, text.front() == '-' ? -1.0 : 1.0);
  } else if (problem != std::errc()) {
    return std::nullopt;
  }
  return PropertyList(value);
}

std::optional<PropertyList> dataOf(std::string_view text) {
  static constexpr auto values = [] {
    std::array<int, 256> all{};
    all.fill(-1);
    for (std::size_t i = 0; i < base64Digits.size(); ++i)
      all[static_cast<unsigned char>(base64Digits[i])] = static_cast<int>(i);
    return all;
  }();
  PropertyList::Data data;
  data.reserve(text.size() / 4 * 3 + 3);
  std::uint32_t bits = 0;
  int count = 0;
  bool isOver = false;
  for (const char c : text) {
    if (isSpace(c)) continue;
    if (c == '=') {
      isOver = true;
      continue;
    }
    const int value = values[static_cast<unsigned char>(c)];
    if (value < 0 || isOver) return std::nullopt;
    bits = bits << 6 | static_cast<std::uint32_t>(value);
    if ((count += 6) < 8) continue;
    count -= 8;
    data.push_back(static_cast<std::uint8_t>(bits >> count));
  }
  return PropertyList(std::move(data));
}

/// "2023-03-08T20:26:40Z"; fractions of a second may follow.
std::optional<PropertyList> dateOf(std::string_view text) {
  static constexpr std::string_view form = "0000-00-00T00:00:00";
  if (text.size() <= form.size() || text.back() != 'Z') return std::nullopt;
  std::array<int, 6> parts{};
  std::size_t part = 0;
  for (std::size_t i = 0; i < form.size(); ++i) {
    if (form[i] != '0') {
      if (text[i] != form[i]) return std::nullopt;
      ++part;
      continue;
    }
    if (text[i] < '0' || text[i] > '9') return std::nullopt;
    parts[part] = parts[part] * 10 + (text[i] - '0');
  }
  double fraction = 0;
  if (const std::string_view rest = text.substr(form.size(), text.size() - form.size() - 1);
      !rest.empty()) {
    const auto [end, problem] = std::from_chars(rest.data(), rest.data() + rest.size(), fraction);
    if (rest.front() != '.' || problem != std::errc() || end != rest.data() + rest.size())
      return std::nullopt;
  }
  const std::chrono::year_month_day day{std::chrono::year(parts[0]),
                                        std::chrono::month(static_cast<unsigned>(parts[1])),
                                        std::chrono::day(static_cast<unsigned>(parts[2]))};
  if (!day.ok() || parts[3] > 23 || parts[4] > 59 || parts[5] > 60) return std::nullopt;
  const auto days = std::chrono::sys_days(day).time_since_epoch().count();
  const double seconds = static_cast<double>(days) * 86400 + parts[3] * 3600 + parts[4] * 60 +
                         parts[5] + fraction - secondsTo2001;
  return PropertyList(PropertyList::Date{seconds});
}

std::optional<PropertyList> valueOf(Element element, std::string& text) {
  switch (element) {
    case Element::yes:
    case Element::no:
      if (!trimmed(text).empty()) return std::nullopt;
      return PropertyList(element == Element::yes);
    case Element::integer:
      return integerOf(trimmed(text));
    case Element::real:
      return realOf(trimmed(text));
    case Element::data:
      return dataOf(text);
    case Element::date:
      return dateOf(trimmed(text));
    default:
      return PropertyList(std::exchange(text, {}));
  }
}

/// What expat tells of one text. It goes through it twice: first it holds the text against the limits
/// and counts the elements of each array, then it makes the values, each array in one piece.
class Reader {
 public:
  explicit Reader(const PropertyListLimits& limits) : limits_(limits) {}

  /// Only the first entry of the root dictionary with one of these keys; the text may end after it.
  void seek(std::span<const std::string_view> keys) { wanted_ = keys; }
  std::optional<std::pair<std::string, PropertyList>> found() && { return std::move(found_); }

  std::optional<PropertyList> read(std::string_view text, std::string& error) {
    isCounting_ = true;
    if (!parse(text, error)) return std::nullopt;
    isCounting_ = false;
    if (!parse(text, error)) return std::nullopt;
    return std::move(root_);
  }
  void readStart(std::string_view text) {
    std::string ignored;
    parse(text, ignored);
  }

 private:
  struct Open {
    Element element;
    PropertyList::Array array{};
    PropertyList::Dictionary dictionary{};
    std::optional<std::string> key{};
    /// Of an array, its place among those of the text.
    std::size_t number = 0;
    bool hasRoot = false;
  };

  bool parse(std::string_view text, std::string& error) {
    const std::unique_ptr<XML_ParserStruct, decltype(&XML_ParserFree)> parser(
        XML_ParserCreate(nullptr), &XML_ParserFree);
    if (!parser) {
      error = "there is no memory to read the XML property list";
      return false;
    }
    parser_ = parser.get();
    open_.clear();
    text_.clear();
    arrays_ = 0;
    size_ = 0;
    problem_ = nullptr;
    hasRoot_ = false;
    root_.reset();
    XML_SetUserData(parser_, this);
    XML_SetElementHandler(
        parser_, [](void* self, const char* name, const char**) { the(self).begin(name); },
        [](void* self, const char*) { the(self).end(); });
    XML_SetCharacterDataHandler(parser_, [](void* self, const char* part, int length) {
      the(self).append({part, static_cast<std::size_t>(length)});
    });
    // No property list needs any, and they can make much out of little.
    XML_SetEntityDeclHandler(
        parser_, [](void* self, const char*, int, const char*, int, const char*, const char*,
                    const char*, const char*) { the(self).fail("declares entities"); });
    bool isWhole = true;
    // expat counts in int.
    constexpr std::size_t piece = std::size_t{1} << 24;
    do {
      const std::string_view part = text.substr(0, piece);
      text.remove_prefix(part.size());
      const bool isLast = text.empty() && wanted_.empty();
      isWhole =
          XML_Parse(parser_, part.data(), static_cast<int>(part.size()), isLast) == XML_STATUS_OK;
    } while (isWhole && !text.empty());
    if (isWhole && !wanted_.empty()) return true;
    if (isWhole && (isCounting_ ? hasRoot_ : root_.has_value())) return true;
    std::string why = "holds no value";
    if (problem_)
      why = problem_;
    else if (!isWhole)
      why = std::string("is damaged (") + XML_ErrorString(XML_GetErrorCode(parser_)) + ')';
    error = "the XML property list " + why + ", in line " +
            std::to_string(XML_GetCurrentLineNumber(parser_));
    return false;
  }

  static Reader& the(void* self) { return *static_cast<Reader*>(self); }

  void fail(const char* why) {
    if (problem_) return;
    problem_ = why;
    XML_StopParser(parser_, XML_FALSE);
  }
  void charge(std::uint64_t bytes) {
    size_ += bytes;
    if (size_ > limits_.size) fail("unfolds to more than can be read");
  }

  void begin(std::string_view name) {
    if (problem_) return;
    const auto element = elementNamed(name);
    if (!element) return fail("has an element that is no value");
    if (open_.size() > limits_.depth) return fail("is nested too deeply");
    const bool isKey = *element == Element::key;
    if (*element == Element::plist) {
      if (!open_.empty()) return fail("has a list within a list");
    } else if (open_.empty()) {
      hasRoot_ = true;
    } else {
      Open& outer = open_.back();
      const bool isDictionary = outer.element == Element::dict;
      if (outer.element == Element::plist && std::exchange(outer.hasRoot, true))
        return fail("has more than one value");
      if (outer.element == Element::plist) hasRoot_ = true;
      if (outer.element != Element::plist && !isCollection(outer.element))
        return fail("has a value within a text");
      if (isKey != (isDictionary && !outer.key)) return fail(keyProblem(isDictionary, isKey));
      if (!isKey) charge(sizeof(PropertyList) + (isDictionary ? entrySize : 0));
      if (outer.element == Element::array && isCounting_) ++counts_[outer.number];
    }
    if (isKey && (open_.empty() || open_.back().element != Element::dict))
      return fail("has a key outside a dictionary");
    open_.push_back({.element = *element});
    if (*element == Element::array) beginArray(open_.back());
    text_.clear();
  }
  void beginArray(Open& array) {
    array.number = arrays_++;
    if (isCounting_)
      counts_.push_back(0);
    else if (wanted_.empty())
      array.array.reserve(counts_[array.number]);
  }
  static const char* keyProblem(bool isDictionary, bool isKey) {
    if (!isDictionary) return "has a key outside a dictionary";
    return isKey ? "has two keys for one value" : "has a value without a key";
  }

  void append(std::string_view part) {
    if (problem_ || open_.empty()) return;
    const Element element = open_.back().element;
    if (element == Element::plist || isCollection(element)) {
      if (!trimmed(part).empty()) fail("has text between its values");
      return;
    }
    text_ += part;
  }

  void end() {
    if (problem_) return;
    Open closed = std::move(open_.back());
    open_.pop_back();
    if (closed.element == Element::plist) return;
    if (closed.element == Element::key) {
      open_.back().key = xmlText(text_);
      text_.clear();
      return;
    }
    if (closed.key) return fail("has a key without a value");
    std::optional<PropertyList> value;
    if (closed.element == Element::dict)
      value = std::move(closed.dictionary);
    else if (closed.element == Element::array)
      value = std::move(closed.array);
    else
      value = foundation::valueOf(closed.element, text_);
    text_.clear();
    if (!value) return fail("has a value that cannot be read");
    take(std::move(*value));
  }
  void take(PropertyList value) {
    if (open_.empty() || open_.back().element == Element::plist) {
      if (!isCounting_) root_ = std::move(value);
      return;
    }
    Open& outer = open_.back();
    if (outer.element == Element::array) {
      if (!isCounting_) outer.array.push_back(std::move(value));
      return;
    }
    const std::string key = *std::exchange(outer.key, std::nullopt);
    if (!wanted_.empty() && isRootDictionary()) {
      if (std::find(wanted_.begin(), wanted_.end(), key) == wanted_.end()) return;
      found_.emplace(key, std::move(value));
      return fail("found");
    }
    if (!isCounting_) outer.dictionary.insert_or_assign(key, std::move(value));
  }
  bool isRootDictionary() const {
    return open_.size() == (open_.front().element == Element::plist ? 2u : 1u);
  }

  const PropertyListLimits limits_;
  std::span<const std::string_view> wanted_;
  std::optional<std::pair<std::string, PropertyList>> found_;
  XML_Parser parser_ = nullptr;
  bool isCounting_ = false;
  bool hasRoot_ = false;
  std::vector<Open> open_;
  std::string text_;
  std::vector<std::size_t> counts_;
  std::size_t arrays_ = 0;
  std::uint64_t size_ = 0;
  const char* problem_ = nullptr;
  std::optional<PropertyList> root_;
};

}  // namespace

std::optional<PropertyList> readXmlPropertyList(std::string_view text,
                                                const PropertyListLimits& limits,
                                                std::string& error) {
  return Reader(limits).read(text, error);
}

std::optional<std::pair<std::string, PropertyList>> firstXmlEntry(
    std::string_view start, std::span<const std::string_view> keys) {
  Reader reader{PropertyListLimits()};
  reader.seek(keys);
  reader.readStart(start);
  return std::move(reader).found();
}

}  // namespace foundation
