#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "Orvane/UIColumn.h"
#include "platform/Color.h"

namespace orvane {

/// A titled panel of parameters. Shared by the design, its page and the view that shows it.
class Section {
 public:
  Section(std::vector<UIColumn> stack_, std::string name_, platform::Color color_,
          std::optional<std::string> stateParameter_, std::optional<std::string> feedbackParameter_,
          bool fillNameSpace_, bool displayGradient_)
      : name(std::move(name_)),
        color(color_),
        stack(std::move(stack_)),
        fillNameSpace(fillNameSpace_),
        displayGradient(displayGradient_),
        stateParameter(std::move(stateParameter_)),
        feedbackParameter(std::move(feedbackParameter_)) {}

  /// Shown as its title; names it within its page.
  std::string name;
  /// Tints its background and its controls.
  platform::Color color;
  /// From left to right.
  std::vector<UIColumn> stack;
  /// Its controls take the place of the title.
  bool fillNameSpace = false;
  bool displayGradient = true;
  /// Key of the parameter that switches the section on and off.
  std::optional<std::string> stateParameter;
  /// Key of the parameter whose control is shown small in the top right corner.
  std::optional<std::string> feedbackParameter;
};

}  // namespace orvane
