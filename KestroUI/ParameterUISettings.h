#pragma once

#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "KestroUI/ControlType.h"
#include "platform/Color.h"

namespace kestroui {

class Container;

/// How the control of one parameter is built. Written by the plug-in, carried by its ParamKey.
struct ParameterUISettings {
  ParameterUISettings() = default;
  ParameterUISettings(std::string displayName_, ControlType controlType_,
                      std::vector<std::string> attachedParameters_, bool inverted_,
                      std::vector<std::string> stringValues_, std::vector<bool> links_,
                      std::vector<platform::Color> colors_,
                      std::optional<platform::Color> controlColor_)
      : displayName(std::move(displayName_)),
        controlType(controlType_),
        attachedParameters(std::move(attachedParameters_)),
        inverted(inverted_),
        stringValues(std::move(stringValues_)),
        links(std::move(links_)),
        colors(std::move(colors_)),
        controlColor(controlColor_) {}
  /// A control that the plug-in has made itself.
  ParameterUISettings(std::string displayName_, std::shared_ptr<Container> container_)
      : displayName(std::move(displayName_)), container(std::move(container_)) {}

  /// Shown with the control; the key is shown when it is empty.
  std::string displayName;
  ControlType controlType = ControlType::knob;
  /// Keys of further parameters that the same control drives.
  std::vector<std::string> attachedParameters;
  /// The control shows the parameter's range reversed.
  bool inverted = false;
  /// Texts of an indexed parameter's values; when empty, the audio unit is asked.
  std::vector<std::string> stringValues;
  /// Which of a control's parts move together.
  std::vector<bool> links{false, false};
  std::vector<platform::Color> colors;
  std::optional<platform::Color> controlColor;
  /// Used instead of building one.
  std::shared_ptr<Container> container;
};

}  // namespace kestroui
