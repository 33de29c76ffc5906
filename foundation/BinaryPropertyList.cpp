#include "foundation/BinaryPropertyList.h"

#include <bit>
#include <stdexcept>
#include <utility>

#include "foundation/UnicodeText.h"

namespace foundation {

namespace {

using platform::PropertyList;

constexpr std::size_t headerSize = 8;
constexpr std::size_t trailerSize = 32;
/// Roughly what one value takes in memory besides its text or data, and an entry of a dictionary
/// besides its key and its value.
constexpr std::uint64_t valueSize = sizeof(PropertyList), entrySize = 64;

/// Goes from a problem deep in the tree to readBinaryPropertyList.
struct Damage : std::runtime_error {
  using runtime_error::runtime_error;
};

class Reader {
 public:
  Reader(std::span<const std::uint8_t> bytes, const PropertyListLimits& limits)
      : bytes_(bytes), limits_(limits) {}

  PropertyList read() {
    if (bytes_.size() < headerSize + trailerSize) throw Damage("is cut short");
    end_ = bytes_.size() - trailerSize;
    offsetWidth_ = bytes_[end_ + 6];
    referenceWidth_ = bytes_[end_ + 7];
    count_ = number(end_ + 8, 8);
    table_ = number(end_ + 24, 8);
    if (offsetWidth_ < 1 || offsetWidth_ > 8 || referenceWidth_ < 1 || referenceWidth_ > 8 ||
        table_ > end_ || count_ > (end_ - table_) / offsetWidth_)
      throw Damage("has a damaged table");
    return object(number(end_ + 16, 8), 0);
  }

 private:
  std::uint64_t number(std::uint64_t place, std::size_t width) const {
    std::uint64_t value = 0;
    for (std::size_t i = 0; i < width; ++i) value = value << 8 | bytes_[place + i];
    return value;
  }

  /// That so many elements of so many bytes follow `place`, and fit into memory.
  void require(std::uint64_t place, std::uint64_t count, std::uint64_t width) {
    if (count > (end_ - place) / width) throw Damage("is cut short");
    spend(count * width);
  }

  void spend(std::uint64_t size) {
    spent_ += size;
    if (spent_ > limits_.size) throw Damage("unfolds to more than can be read");
  }

  PropertyList object(std::uint64_t index, std::size_t depth) {
    if (index >= count_) throw Damage("refers to a value that it does not have");
    std::uint64_t place = number(table_ + index * offsetWidth_, offsetWidth_);
    if (place >= end_) throw Damage("has a damaged table");
    spend(valueSize);
    const int kind = bytes_[place] >> 4;
    const int low = bytes_[place] & 15;
    ++place;
    switch (kind) {
      case 0x0:
        return low == 8 || low == 9 ? PropertyList(low == 9) : PropertyList();
      case 0x1:
        return integer(place, low);
      case 0x2:
        return real(place, low);
      case 0x3:
        require(place, 1, 8);
        return PropertyList::Date{std::bit_cast<double>(number(place, 8))};
      case 0x8:
        require(place, 1, low + 1);
        return PropertyList::Dictionary{
            {"CF$UID", static_cast<std::int64_t>(number(place, low + 1))}};
      default: {
        // First, since it moves the place on.
        const std::uint64_t length = low == 15 ? count(place) : static_cast<std::uint64_t>(low);
        return sequence(kind, place, length, depth);
      }
    }
  }

  PropertyList integer(std::uint64_t place, int low) {
    if (low > 4) throw Damage("has a damaged number");
    const std::size_t width = std::size_t{1} << low;
    require(place, 1, width);
    // Eight bytes have a sign; of sixteen, the lower half holds all that is written in practice.
    return static_cast<std::int64_t>(number(place, width));
  }

  PropertyList real(std::uint64_t place, int low) {
    if (low != 2 && low != 3) throw Damage("has a damaged number");
    require(place, 1, low == 2 ? 4 : 8);
    if (low == 3) return std::bit_cast<double>(number(place, 8));
    return double{std::bit_cast<float>(static_cast<std::uint32_t>(number(place, 4)))};
  }

  /// The count that stands as an integer of its own after the marker.
  std::uint64_t count(std::uint64_t& place) const {
    if (place >= end_ || bytes_[place] >> 4 != 1 || (bytes_[place] & 15) > 3)
      throw Damage("has a damaged count");
    const std::size_t width = std::size_t{1} << (bytes_[place] & 15);
    ++place;
    if (width > end_ - place) throw Damage("is cut short");
    place += width;
    return number(place - width, width);
  }

  PropertyList sequence(int kind, std::uint64_t place, std::uint64_t count, std::size_t depth) {
    const auto from = [&](std::uint64_t size) { return bytes_.subspan(place, size); };
    switch (kind) {
      case 0x4: {
        require(place, count, 1);
        const auto data = from(count);
        return PropertyList::Data(data.begin(), data.end());
      }
      case 0x5: {
        require(place, count, 1);
        const auto text = from(count);
        return xmlText({reinterpret_cast<const char*>(text.data()), text.size()});
      }
      case 0x6:
        require(place, count, 2);
        return xmlText(utf8FromUtf16(from(2 * count)));
      case 0xa:
      case 0xc:
        require(place, count, referenceWidth_);
        return array(place, count, depth + 1);
      case 0xd:
        require(place, count, 2 * referenceWidth_);
        return dictionary(place, count, depth + 1);
      default:
        throw Damage("has a value of an unknown kind");
    }
  }

  PropertyList child(std::uint64_t place, std::uint64_t position, std::size_t depth) {
    if (depth > limits_.depth) throw Damage("is nested too deeply");
    return object(number(place + position * referenceWidth_, referenceWidth_), depth);
  }

  PropertyList array(std::uint64_t place, std::uint64_t count, std::size_t depth) {
    PropertyList::Array result;
    for (std::uint64_t i = 0; i < count; ++i) result.push_back(child(place, i, depth));
    return result;
  }

  PropertyList dictionary(std::uint64_t place, std::uint64_t count, std::size_t depth) {
    PropertyList::Dictionary result;
    for (std::uint64_t i = 0; i < count; ++i) {
      const PropertyList key = child(place, i, depth);
      if (!key.as<std::string>()) throw Damage("has a key that is no text");
      spend(entrySize);
      result[*key.as<std::string>()] = child(place, count + i, depth);
    }
    return result;
  }

  std::span<const std::uint8_t> bytes_;
  const PropertyListLimits& limits_;
  std::uint64_t end_ = 0;
  std::uint64_t table_ = 0;
  std::uint64_t count_ = 0;
  std::size_t offsetWidth_ = 1;
  std::size_t referenceWidth_ = 1;
  std::uint64_t spent_ = 0;
};

}  // namespace

std::optional<PropertyList> readBinaryPropertyList(std::span<const std::uint8_t> bytes,
                                                   const PropertyListLimits& limits,
                                                   std::string& error) {
  try {
    return Reader(bytes, limits).read();
  } catch (const Damage& damage) {
    error = std::string("the binary property list ") + damage.what();
    return std::nullopt;
  }
}

}  // namespace foundation
