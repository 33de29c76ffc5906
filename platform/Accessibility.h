#pragma once

#include <optional>
#include <string>

namespace platform {

/// What a view is to somebody who does not see it: a backend hands it to the system's assistive
/// technology. A view whose role is none is passed over; those below it count all the same.
struct Accessibility {
  enum class Role {
    none,
    text,
    button,
    /// A switch: its range's value is 1 when it is on.
    toggle,
    /// One of several buttons of which one is on.
    tab,
    /// A value that is moved within its range.
    slider,
    /// One of several named values.
    choice,
    /// Shows a value that cannot be moved.
    indicator,
    /// A text that its user edits.
    field,
    /// An entry of a list.
    row,
  };
  struct Range {
    double minimum = 0;
    double maximum = 1;
    /// What an arrow key moves it by.
    double step = 0;
    double value = 0;

    friend bool operator==(const Range&, const Range&) = default;
  };

  Role role = Role::none;
  std::string name{};
  /// The value as a person reads it; empty for what has none.
  std::string value{};
  std::optional<Range> range{};

  friend bool operator==(const Accessibility&, const Accessibility&) = default;
};

}  // namespace platform
