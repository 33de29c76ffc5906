#include "Orvane/ControlParameterObserver.h"

#include <cmath>

#include "Orvane/ParameterMapping.h"

namespace orvane {

namespace {

/// The design's own text for the value, or null where it names none.
const std::string* ownText(const kestroui::Container& container, const std::string& key,
                           const platform::AUParameter& parameter, float value) {
  for (const auto& paramKey : container.paramKeys()) {
    if (paramKey->key() != key) continue;
    const auto& texts = paramKey->settings().stringValues;
    const float index = std::round(value - parameter.minValue());
    return index >= 0 && index < static_cast<float>(texts.size())
               ? &texts[static_cast<std::size_t>(index)]
               : nullptr;
  }
  return nullptr;
}

}  // namespace

float ControlParameterObserver::shownValue(const kestroui::Container& container,
                                           const std::string& key,
                                           const platform::AUParameter& parameter, float value) {
  return ParameterMapping(parameter, container.valueForm(key)).positionOf(value);
}

void ControlParameterObserver::add(kestroui::Container& container, const std::string& key) {
  targets_.push_back({&container, key});
}

void ControlParameterObserver::update(platform::AUParameter& parameter, const std::string&) {
  const float value = parameter.value();
  for (const Target& target : targets_) {
    auto* container = target.container.get();
    if (!container) continue;
    const std::string* text = ownText(*container, target.key, parameter, value);
    container->showValue(target.key, shownValue(*container, target.key, parameter, value),
                         text ? *text : parameter.stringFromValue(value));
  }
}

}  // namespace orvane
