#pragma once

#include <unordered_map>
#include <unordered_set>

#include "platform/AudioUnit.h"

namespace orvane {

/// The values that a preset has set, by which one sees whether the sound is still the preset's. A
/// value that comes back to where it was counts as unchanged. User-interface thread only.
class PresetBaseline {
 public:
  PresetBaseline() = default;
  /// Of all parameters as they are now.
  explicit PresetBaseline(platform::ParameterSource& audioUnit);

  /// The parameter has a new value.
  void follow(const platform::AUParameter& parameter);
  bool isModified() const { return !changed_.empty(); }

 private:
  std::unordered_map<platform::AUParameterAddress, float> values_;
  std::unordered_set<platform::AUParameterAddress> changed_;
};

}  // namespace orvane
