#pragma once

#include <string>

#include "KestroUI/FilterViewContainer.h"
#include "platform/AudioUnit.h"

namespace orvane {

/// A filter view for the audio unit's parameters. A frequency parameter in hertz takes the
/// frequency; any other takes its place in pitch between 20 Hz and 20 kHz, from 0 to 1. The keys
/// of the side chain's filters stand for parameters with other keys.
class AUFilterViewContainer : public kestroui::FilterViewContainer {
 public:
  /// Whose filter it shows.
  platform::Weak<platform::AudioUnit> audioUnit;
  /// The live values for which the curve was drawn last.
  float previousFreq = 0;
  float previousRes = 0;

  /// The key of the parameter that a key of this container stands for: its own, except for the
  /// side chain's.
  static const std::string& parameterKey(const std::string& key);

  /// What the user set for `key`, as `parameter` takes it.
  float parameterValue(const std::string& key, const platform::AUParameter& parameter) const;
  /// What showValue takes for `key` when `parameter` has `value`.
  float shownValue(const std::string& key, const platform::AUParameter& parameter,
                   float value) const;
};

}  // namespace orvane
