#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace platform {

/// A tree of plain values, as property lists and the state of an audio unit hold them.
class PropertyList {
 public:
  using Array = std::vector<PropertyList>;
  using Dictionary = std::map<std::string, PropertyList>;
  using Data = std::vector<std::uint8_t>;
  /// Seconds since 2001-01-01 00:00 UTC.
  struct Date {
    double seconds = 0;
    friend bool operator==(const Date&, const Date&) = default;
  };
  using Value = std::variant<std::monostate, bool, std::int64_t, double, std::string, Data, Date,
                             Array, Dictionary>;

  PropertyList() = default;
  PropertyList(bool v) : value_(v) {}
  PropertyList(int v) : value_(std::int64_t{v}) {}
  PropertyList(std::int64_t v) : value_(v) {}
  PropertyList(double v) : value_(v) {}
  PropertyList(const char* v) : value_(std::string(v)) {}
  PropertyList(std::string v) : value_(std::move(v)) {}
  PropertyList(Data v) : value_(std::move(v)) {}
  PropertyList(Date v) : value_(v) {}
  PropertyList(Array v) : value_(std::move(v)) {}
  PropertyList(Dictionary v) : value_(std::move(v)) {}

  bool isNull() const { return std::holds_alternative<std::monostate>(value_); }
  /// The value when it has exactly this type, else null.
  template <class T>
  const T* as() const {
    return std::get_if<T>(&value_);
  }
  template <class T>
  T* as() {
    return std::get_if<T>(&value_);
  }
  /// The number of an integer, real or Boolean value; `fallback` for any other.
  double number(double fallback = 0) const {
    if (const auto* i = as<std::int64_t>()) return static_cast<double>(*i);
    if (const auto* d = as<double>()) return *d;
    if (const auto* b = as<bool>()) return *b ? 1 : 0;
    return fallback;
  }
  /// The entry of a dictionary; null when this is no dictionary or has no such key.
  const PropertyList* find(const std::string& key) const {
    const auto* dictionary = as<Dictionary>();
    if (!dictionary) return nullptr;
    const auto entry = dictionary->find(key);
    return entry == dictionary->end() ? nullptr : &entry->second;
  }
  const Value& value() const { return value_; }

  friend bool operator==(const PropertyList&, const PropertyList&) = default;

 private:
  Value value_;
};

}  // namespace platform
