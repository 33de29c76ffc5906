#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <nlohmann/json.hpp>

#include "platform/Color.h"
#include "tools/orvane/Problems.h"

namespace tool {

/// Reads one object of a description strictly: each member is asked for once by its name, with what
/// stands in for it when it is missing or wrong. Whatever is wrong is added to the problems with
/// its place, and reading goes on. A value that is no object reads as an empty one.
///
///     ObjectReader section(problems, value, "pages[0].sections[1]");
///     const std::string name = section.text("name", "");
///     section.finish();
class ObjectReader {
 public:
  using Json = nlohmann::json;
  /// Smallest and largest number; both are allowed.
  struct Range {
    double low, high;
  };

  ObjectReader(Problems& problems, const Json& value, std::string place);

  /// "pages[0].sections[1].name"; `index` is appended for an entry of a list.
  std::string place(std::string_view member) const;
  std::string place(std::string_view member, std::size_t index) const;
  void problem(std::string_view member, std::string text);
  void problem(std::string_view member, std::size_t index, std::string text);
  /// A problem of the object as a whole.
  void problem(std::string text);

  /// Null when the member is missing.
  const Json* find(std::string_view member);
  /// The same, but a member that is missing is a problem.
  const Json* require(std::string_view member);

  std::string text(std::string_view member, std::string fallback);
  /// A text that has to be there and must not be empty; "" when it is not so.
  std::string requiredText(std::string_view member);
  /// A text or null.
  std::optional<std::string> optionalText(std::string_view member);
  bool boolean(std::string_view member, bool fallback);
  double number(std::string_view member, double fallback, Range range);
  /// Above 0.
  double weight(std::string_view member, double fallback);
  std::int64_t whole(std::string_view member, std::int64_t fallback, Range range);
  std::optional<platform::Color> color(std::string_view member);

  /// Calls `entry` for every entry of a list; does nothing when the member is missing.
  void list(std::string_view member,
            const std::function<void(const Json& entry, std::size_t index)>& entry);
  std::vector<std::string> texts(std::string_view member);
  std::vector<std::optional<std::string>> optionalTexts(std::string_view member);
  std::vector<bool> booleans(std::string_view member, const std::vector<bool>& fallback);
  std::vector<platform::Color> colors(std::string_view member);

  /// Every member that nobody has asked for is a problem.
  void finish();

 private:
  const Json* typed(std::string_view member, bool (Json::*is)() const noexcept,
                    std::string_view what);
  bool checkEntry(std::string_view member, std::size_t index, const Json& entry, bool right,
                  std::string_view what);

  Problems& problems_;
  const Json* object_ = nullptr;
  std::string place_;
  std::vector<std::string_view> known_;
};

}  // namespace tool
