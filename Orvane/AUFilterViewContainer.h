#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "KestroUI/ShapeContainers.h"
#include "platform/AudioUnit.h"

namespace orvane {

/// A filter view whose response the audio unit computes, again only when a value has changed. The
/// keys of the side chain's filters stand for parameters with other keys. The type of the filter is
/// the one that the own key names, else a low pass.
class AUFilterViewContainer : public kestroui::FilterViewContainer {
 public:
  /// Whose filter it shows.
  platform::Weak<platform::AudioUnit> audioUnit;
  /// The live values for which the curve was drawn last.
  float previousFreq = 0;
  float previousRes = 0;

  void setParamKeys(std::vector<std::shared_ptr<kestroui::ParamKey>> keys) override;
  void showValue(std::size_t index, float value, const std::string& text) override;
  /// Shows the response for the present values of its first two keys.
  void updateViewData();
  void updateFilterViewFrequencyAndMagnitudes(kestroui::FilterView& view,
                                              const std::string& frequencyKey,
                                              const std::string& resonanceKey);
  /// Shows the response for the live values.
  void updateModulation() override;

 private:
  /// Of the key at this place; null where there is none.
  const platform::AUParameter* parameterAt(const platform::AudioUnit& unit,
                                           std::size_t index) const;
  // From the live values of its first two keys.
  float liveHertz(const platform::AudioUnit& unit, float value) const;
  float liveDecibels(const platform::AudioUnit& unit, float value) const;
};

}  // namespace orvane
