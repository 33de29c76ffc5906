#include "foundation/PropertyListCoding.h"

#include <plist/plist.h>

#include <algorithm>
#include <clocale>
#include <cstdlib>
#include <limits>
#include <memory>
#include <string_view>
#include <utility>

#include "foundation/BinaryPropertyList.h"
#include "foundation/UnicodeText.h"

namespace foundation {

using platform::PropertyList;

namespace {

struct FreeNode {
  void operator()(void* node) const { plist_free(node); }
};
using Node = std::unique_ptr<void, FreeNode>;

/// libplist reads and writes reals in the current locale; a host may have set one with commas.
class PlainNumbers {
 public:
  PlainNumbers() : plain_(newlocale(LC_NUMERIC_MASK, "C", nullptr)), saved_(uselocale(plain_)) {}
  ~PlainNumbers() {
    uselocale(saved_);
    if (plain_) freelocale(plain_);
  }

 private:
  locale_t plain_;
  locale_t saved_;
};

/// Whether the elements of an XML text stay within `limit` levels. Comments and verbatim text are
/// stepped over; that the elements match is for the parser to check.
bool xmlDepthIsWithin(std::string_view text, std::size_t limit) {
  std::size_t depth = 0;
  std::size_t place = 0;
  const auto skipPast = [&](std::string_view end) {
    const std::size_t found = text.find(end, place);
    place = found == text.npos ? text.size() : found + end.size();
  };
  while ((place = text.find('<', place)) != text.npos) {
    const std::string_view rest = text.substr(place);
    if (rest.substr(0, 4) == "<!--") {
      place += 4;
      skipPast("-->");
    } else if (rest.substr(0, 9) == "<![CDATA[") {
      place += 9;
      skipPast("]]>");
    } else {
      const char next = rest.size() > 1 ? rest[1] : '\0';
      skipPast(">");
      if (next == '/')
        depth -= depth > 0 ? 1 : 0;
      else if (next != '?' && next != '!' && text[place - 1] == '>' && text[place - 2] != '/')
        ++depth;
      if (depth > limit) return false;
    }
  }
  return true;
}

std::string stringOf(plist_t node) {
  std::uint64_t length = 0;
  const char* text = plist_get_string_ptr(node, &length);
  return text ? xmlText(std::string_view(text, length)) : std::string();
}

PropertyList toList(plist_t node);

PropertyList::Array arrayOf(plist_t node) {
  PropertyList::Array array;
  plist_array_iter iterator = nullptr;
  plist_array_new_iter(node, &iterator);
  plist_t item = nullptr;
  for (plist_array_next_item(node, iterator, &item); item;
       plist_array_next_item(node, iterator, &item))
    array.push_back(toList(item));
  std::free(iterator);
  return array;
}

PropertyList::Dictionary dictionaryOf(plist_t node) {
  PropertyList::Dictionary dictionary;
  plist_dict_iter iterator = nullptr;
  plist_dict_new_iter(node, &iterator);
  for (;;) {
    char* key = nullptr;
    plist_t item = nullptr;
    plist_dict_next_item(node, iterator, &key, &item);
    if (item && key) dictionary[xmlText(key)] = toList(item);
    std::free(key);
    if (!item) break;
  }
  std::free(iterator);
  return dictionary;
}

PropertyList toList(plist_t node) {
  switch (plist_get_node_type(node)) {
    case PLIST_BOOLEAN: {
      std::uint8_t value = 0;
      plist_get_bool_val(node, &value);
      return value != 0;
    }
    case PLIST_UINT: {
      std::uint64_t value = 0;
      plist_get_uint_val(node, &value);
      return static_cast<std::int64_t>(value);
    }
    case PLIST_REAL: {
      double value = 0;
      plist_get_real_val(node, &value);
      return value;
    }
    case PLIST_STRING:
      return stringOf(node);
    case PLIST_DATA: {
      std::uint64_t length = 0;
      const char* bytes = plist_get_data_ptr(node, &length);
      return PropertyList::Data(bytes, bytes + length);
    }
    case PLIST_DATE: {
      std::int32_t seconds = 0;
      std::int32_t microseconds = 0;
      plist_get_date_val(node, &seconds, &microseconds);
      return PropertyList::Date{seconds + microseconds / 1e6};
    }
    case PLIST_ARRAY:
      return arrayOf(node);
    case PLIST_DICT:
      return dictionaryOf(node);
    default:
      return {};
  }
}

/// Null for a null.
struct ToNode {
  plist_t operator()(std::monostate) const { return nullptr; }
  plist_t operator()(bool value) const { return plist_new_bool(value ? 1 : 0); }
  plist_t operator()(std::int64_t value) const {
    return plist_new_uint(static_cast<std::uint64_t>(value));
  }
  plist_t operator()(double value) const { return plist_new_real(value); }
  plist_t operator()(const std::string& value) const {
    return plist_new_string(xmlText(value).c_str());
  }
  plist_t operator()(const PropertyList::Data& value) const {
    return plist_new_data(reinterpret_cast<const char*>(value.data()), value.size());
  }
  plist_t operator()(const PropertyList::Date& value) const {
    constexpr double limit = std::numeric_limits<std::int32_t>::max();
    // Written so that a NaN becomes the earliest date.
    const double seconds = value.seconds > -limit ? std::min(value.seconds, limit) : -limit;
    return plist_new_date(static_cast<std::int32_t>(seconds), 0);
  }
  plist_t operator()(const PropertyList::Array& value) const {
    plist_t array = plist_new_array();
    for (const PropertyList& item : value)
      if (plist_t node = std::visit(*this, item.value())) plist_array_append_item(array, node);
    return array;
  }
  plist_t operator()(const PropertyList::Dictionary& value) const {
    plist_t dictionary = plist_new_dict();
    for (const auto& [key, item] : value)
      if (plist_t node = std::visit(*this, item.value()))
        plist_dict_set_item(dictionary, xmlText(key).c_str(), node);
    return dictionary;
  }
};

std::optional<PropertyList> readXml(std::string_view text, std::string& error) {
  const PlainNumbers plainNumbers;
  plist_t parsed = nullptr;
  plist_from_xml(text.data(), static_cast<std::uint32_t>(text.size()), &parsed);
  const Node root(parsed);
  if (root) return toList(root.get());
  error = "the XML property list is damaged";
  return std::nullopt;
}

}  // namespace

std::optional<PropertyList> parsePropertyList(std::span<const std::uint8_t> bytes,
                                              std::string& error) {
  const auto limits = PropertyListLimits::ofFile(bytes.size());
  std::string_view text(reinterpret_cast<const char*>(bytes.data()), bytes.size());
  if (text.substr(0, 6) == "bplist") return readBinaryPropertyList(bytes, limits, error);

  if (text.substr(0, 3) == "\xef\xbb\xbf") text.remove_prefix(3);
  const std::size_t start = text.find_first_not_of(" \t\r\n");
  if (text.empty())
    error = "the property list is empty";
  else if (start == text.npos || text[start] != '<')
    error = "this is no property list, neither XML nor binary";
  else if (text.size() > PropertyListLimits().size)
    error = "the XML property list is larger than can be read";
  else if (!xmlDepthIsWithin(text, limits.depth))
    error = "the XML property list is nested too deeply";
  else
    return readXml(text, error);
  return std::nullopt;
}

std::string writeXmlPropertyList(const PropertyList& list) {
  const PlainNumbers plainNumbers;
  const Node root(list.isNull() ? plist_new_dict() : std::visit(ToNode(), list.value()));
  char* text = nullptr;
  std::uint32_t length = 0;
  plist_to_xml(root.get(), &text, &length);
  std::string result = text ? std::string(text, length) : std::string();
  plist_to_xml_free(text);
  return result;
}

}  // namespace foundation
