#include "Orvane/PresetBaseline.h"

namespace orvane {

PresetBaseline::PresetBaseline(platform::ParameterSource& audioUnit) {
  for (const platform::AUParameter* parameter : audioUnit.parameterTree().allParameters())
    values_.emplace(parameter->address(), parameter->value());
}

void PresetBaseline::follow(const platform::AUParameter& parameter) {
  const auto known = values_.find(parameter.address());
  if (known == values_.end()) return;
  if (known->second == parameter.value())
    changed_.erase(parameter.address());
  else
    changed_.insert(parameter.address());
}

}  // namespace orvane
