#pragma once

#include <string>
#include <vector>

#include "KestroUI/Container.h"
#include "Orvane/DSPParameterObserver.h"

namespace orvane {

/// Shows a parameter's value on every control that drives it. One serves all kinds of control: the
/// container itself says whether it wants a position or the value.
class ControlParameterObserver : public DSPParameterObserver {
 public:
  /// `key` is the container's key for the parameter. The container is held weakly.
  void add(kestroui::Container& container, const std::string& key);

  void update(platform::AUParameter& parameter, const std::string& key) override;

  /// What a container's showValue takes for its `key` when `parameter` has `value`.
  static float shownValue(const kestroui::Container& container, const std::string& key,
                          const platform::AUParameter& parameter, float value);

 private:
  struct Target {
    platform::Weak<kestroui::Container> container;
    std::string key;
  };
  std::vector<Target> targets_;
};

}  // namespace orvane
