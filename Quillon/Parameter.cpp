#include "Quillon/Parameter.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "Quillon/ParameterText.h"
#include "Quillon/ParameterTree.h"

namespace quillon {

Parameter::Parameter(ParameterTree& tree, ParameterDescription description)
    : tree_(tree),
      description_(std::move(description)),
      isWhole_(isStepped(description_) &&
               std::ceil(description_.minValue) <= std::floor(description_.maxValue)),
      value_(description_.defaultValue) {}

void Parameter::setValue(float value, platform::AUParameterObserverToken originator) {
  if (std::isnan(value)) return;
  value = settled(value);
  value_.store(value, std::memory_order_relaxed);
  tree_.observers_.notify(description_.address, value, originator);
}

void Parameter::store(float value) {
  if (!std::isnan(value)) value_.store(settled(value), std::memory_order_relaxed);
}

void Parameter::tell() { tree_.observers_.notify(description_.address, value(), nullptr); }

float Parameter::settled(float value) const {
  value = std::clamp(value, description_.minValue, description_.maxValue);
  if (!isWhole_) return value;
  // The ends of a range need not be whole.
  return std::clamp(std::round(value), std::ceil(description_.minValue),
                    std::floor(description_.maxValue));
}

void Parameter::beginGesture() {
  if (gestures_++ == 0) tree_.gesture(description_.address, true);
}

void Parameter::endGesture() {
  if (gestures_ == 0 || --gestures_ > 0) return;
  tree_.gesture(description_.address, false);
}

std::string Parameter::stringFromValue(float value) const {
  return parameterText(description_, value);
}

}  // namespace quillon
