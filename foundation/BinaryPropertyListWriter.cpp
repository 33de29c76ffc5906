#include "foundation/BinaryPropertyListWriter.h"

#include <bit>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "foundation/UnicodeText.h"

namespace foundation {

namespace {

using platform::PropertyList;
using Bytes = std::vector<std::uint8_t>;

void appendNumber(Bytes& bytes, std::uint64_t number, std::size_t width) {
  for (std::size_t i = width; i-- > 0;) bytes.push_back(static_cast<std::uint8_t>(number >> 8 * i));
}

/// Of 1, 2, 4 and 8 bytes the fewest that hold it.
std::size_t widthOf(std::uint64_t number) {
  if (number < 1u << 8) return 1;
  if (number < 1u << 16) return 2;
  return number <= 0xffffffffu ? 4 : 8;
}

/// A negative number takes eight bytes, the only ones with a sign.
void appendInteger(Bytes& bytes, std::int64_t value) {
  const auto number = static_cast<std::uint64_t>(value);
  const std::size_t width = widthOf(number);
  bytes.push_back(static_cast<std::uint8_t>(0x10 | std::countr_zero(width)));
  appendNumber(bytes, number, width);
}

void appendMarker(Bytes& bytes, int kind, std::size_t count) {
  bytes.push_back(static_cast<std::uint8_t>(kind << 4 | (count < 15 ? count : 15)));
  if (count >= 15) appendInteger(bytes, static_cast<std::int64_t>(count));
}

Bytes textObject(std::string_view text) {
  Bytes bytes;
  bool isAscii = true;
  for (const char c : text) isAscii = isAscii && static_cast<unsigned char>(c) < 0x80;
  if (isAscii) {
    appendMarker(bytes, 0x5, text.size());
    bytes.insert(bytes.end(), text.begin(), text.end());
  } else {
    const std::u16string units = utf16FromUtf8(text);
    appendMarker(bytes, 0x6, units.size());
    for (const char16_t unit : units) appendNumber(bytes, unit, 2);
  }
  return bytes;
}

const std::int64_t* referenceOf(const PropertyList::Dictionary& dictionary) {
  if (dictionary.size() != 1 || dictionary.begin()->first != "CF$UID") return nullptr;
  const auto* number = dictionary.begin()->second.as<std::int64_t>();
  return number && *number >= 0 ? number : nullptr;
}

class Writer {
 public:
  Bytes write(const PropertyList& list) {
    // How wide the references are depends on how many objects there are: first they are numbered.
    const std::size_t root = list.isNull() ? add(PropertyList::Dictionary{}) : add(list);
    const std::size_t referenceWidth = widthOf(objects_.size());
    Bytes result{'b', 'p', 'l', 'i', 's', 't', '0', '0'};
    std::vector<std::uint64_t> places;
    for (const Object& object : objects_) {
      places.push_back(result.size());
      result.insert(result.end(), object.bytes.begin(), object.bytes.end());
      for (const std::size_t element : object.elements)
        appendNumber(result, element, referenceWidth);
    }
    const std::size_t table = result.size();
    const std::size_t offsetWidth = widthOf(table);
    for (const std::uint64_t place : places) appendNumber(result, place, offsetWidth);
    result.insert(result.end(), 6, 0);
    result.push_back(static_cast<std::uint8_t>(offsetWidth));
    result.push_back(static_cast<std::uint8_t>(referenceWidth));
    appendNumber(result, objects_.size(), 8);
    appendNumber(result, root, 8);
    appendNumber(result, table, 8);
    return result;
  }

 private:
  struct Object {
    Bytes bytes;
    std::vector<std::size_t> elements;
  };

  std::size_t addObject(Object object) {
    objects_.push_back(std::move(object));
    return objects_.size() - 1;
  }
  std::size_t addShared(Bytes bytes) {
    const auto [known, isNew] =
        shared_.emplace(std::string(bytes.begin(), bytes.end()), objects_.size());
    if (isNew) objects_.push_back({std::move(bytes), {}});
    return known->second;
  }

  std::size_t add(const PropertyList& list) { return std::visit(*this, list.value()); }

 public:
  // For std::visit.

  std::size_t operator()(std::monostate) { return addShared({0x00}); }
  std::size_t operator()(bool value) { return addShared({std::uint8_t(value ? 0x09 : 0x08)}); }
  std::size_t operator()(std::int64_t value) {
    Bytes bytes;
    appendInteger(bytes, value);
    return addShared(std::move(bytes));
  }
  std::size_t operator()(double value) {
    Bytes bytes{0x23};
    appendNumber(bytes, std::bit_cast<std::uint64_t>(value), 8);
    return addShared(std::move(bytes));
  }
  std::size_t operator()(const PropertyList::Date& value) {
    Bytes bytes{0x33};
    appendNumber(bytes, std::bit_cast<std::uint64_t>(value.seconds), 8);
    return addShared(std::move(bytes));
  }
  std::size_t operator()(const std::string& value) { return addShared(textObject(value)); }
  std::size_t operator()(const PropertyList::Data& value) {
    Bytes bytes;
    appendMarker(bytes, 0x4, value.size());
    bytes.insert(bytes.end(), value.begin(), value.end());
    return addObject({std::move(bytes), {}});
  }
  std::size_t operator()(const PropertyList::Array& value) {
    Object object;
    for (const PropertyList& item : value)
      if (!item.isNull()) object.elements.push_back(add(item));
    appendMarker(object.bytes, 0xa, object.elements.size());
    return addObject(std::move(object));
  }
  std::size_t operator()(const PropertyList::Dictionary& value) {
    if (const std::int64_t* reference = referenceOf(value)) {
      const auto number = static_cast<std::uint64_t>(*reference);
      const std::size_t width = widthOf(number);
      Bytes bytes{static_cast<std::uint8_t>(0x80 | (width - 1))};
      appendNumber(bytes, number, width);
      return addShared(std::move(bytes));
    }
    std::vector<std::size_t> keys, values;
    for (const auto& [key, item] : value) {
      if (item.isNull()) continue;
      keys.push_back((*this)(key));
      values.push_back(add(item));
    }
    Object object;
    appendMarker(object.bytes, 0xd, keys.size());
    object.elements = std::move(keys);
    object.elements.insert(object.elements.end(), values.begin(), values.end());
    return addObject(std::move(object));
  }

 private:
  std::vector<Object> objects_;
  std::unordered_map<std::string, std::size_t> shared_;
};

}  // namespace

std::vector<std::uint8_t> writeBinaryPropertyList(const PropertyList& list) {
  return Writer().write(list);
}

}  // namespace foundation
