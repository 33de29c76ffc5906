#include "tools/orvane/DescribedAudioUnit.h"

#include <algorithm>
#include <vector>

namespace tool {

namespace {

std::vector<quillon::ParameterDescription> parametersOf(const DescribedPlugin& plugin) {
  std::vector<quillon::ParameterDescription> parameters;
  for (const DescribedParameter& parameter : plugin.parameters)
    parameters.push_back(parameter.audio);
  return parameters;
}

}  // namespace

DescribedAudioUnit::DescribedAudioUnit(const DescribedPlugin& plugin)
    : CommonAudioUnit(parametersOf(plugin), plugin.factoryPresets),
      hasStore_(!plugin.productId.empty()),
      presetExtension_(plugin.presetExtension) {}

bool DescribedAudioUnit::setLive(std::string_view key, float value) {
  const auto index = indexOfKey(key);
  if (index) publishLive(*index, value);
  return index.has_value();
}

bool DescribedAudioUnit::setModulating(std::string_view key, bool modulating) {
  const auto index = indexOfKey(key);
  if (index) publishModulating(*index, modulating);
  return index.has_value();
}

void DescribedAudioUnit::render(const platform::RenderBlock& block) {
  for (float* output : block.outputs) std::fill_n(output, block.frames, 0.0f);
}

}  // namespace tool
