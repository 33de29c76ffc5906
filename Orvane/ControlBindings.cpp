#include "Orvane/ControlBindings.h"

#include <cmath>

#include "KestroUI/ShapeContainers.h"
#include "Orvane/ControlBuilder.h"

namespace orvane {

using kestroui::Container;

namespace {

/// The design's own text for the value, or null where it names none.
const std::string* ownText(const kestroui::ParamKey& key, const platform::AUParameter& parameter,
                           float value) {
  const auto& texts = key.settings().stringValues;
  const float index = std::round(value - parameter.minValue());
  return index >= 0 && index < static_cast<float>(texts.size())
             ? &texts[static_cast<std::size_t>(index)]
             : nullptr;
}

}  // namespace

void ControlBindings::setAudioUnit(platform::AudioUnit* audioUnit) {
  audioUnit_ = audioUnit;
  places_.clear();
  bindings_.clear();
}

void ControlBindings::bind(Container& container, const DSPParameters& parameters) {
  std::vector<Binding>& bound = bindings_[&container];
  for (const Binding& before : bound)
    if (before.parameter)
      std::erase_if(places_[before.parameter->address()],
                    [&](const Binding* place) { return place == &before; });
  bound.clear();
  const auto& keys = container.paramKeys();
  bound.reserve(keys.size());
  auto* const doubleFilter = dynamic_cast<kestroui::DoubleFilterViewContainer*>(&container);
  for (std::size_t i = 0; i < keys.size(); ++i) {
    platform::AUParameter* const parameter =
        parameters[ControlBuilder::parameterKey(container, keys[i]->key())];
    const auto form = container.valueForm(i);
    bound.push_back({.container = &container,
                     .index = i,
                     .doubleFilter = doubleFilter,
                     .parameter = parameter,
                     .mapping = parameter ? ParameterMapping(*parameter, form)
                                          : ParameterMapping(0, 1, ParameterMapping::Scale::same)});
    bound.back().held = container.value(i);
    if (parameter) places_[parameter->address()].push_back(&bound.back());
  }
}

ControlBindings::Binding* ControlBindings::find(const Container& container, std::size_t index) {
  const auto entry = audioUnit_ ? bindings_.find(&container) : bindings_.end();
  const bool isThere = entry != bindings_.end() && index < entry->second.size() &&
                       entry->second[index].container.get() == &container;
  return isThere ? &entry->second[index] : nullptr;
}

platform::AUParameter* ControlBindings::parameter(const Container& container,
                                                  std::size_t index) const {
  const Binding* const found = find(container, index);
  return found ? found->parameter : nullptr;
}

std::vector<kestroui::DoubleFilterViewContainer*> ControlBindings::doubleFilters(
    platform::AUParameterAddress address) const {
  std::vector<kestroui::DoubleFilterViewContainer*> result;
  const auto entry = places_.find(address);
  if (entry == places_.end()) return result;
  for (const Binding* place : entry->second)
    if (place->doubleFilter && place->container) result.push_back(place->doubleFilter);
  return result;
}

std::vector<std::size_t> ControlBindings::moved(const Container& container) const {
  std::vector<std::size_t> result = container.movedIndices();
  if (!result.empty()) return result;
  for (std::size_t i = 0; i < container.paramKeys().size(); ++i) {
    const Binding* const place = find(container, i);
    if (place && container.value(i) != place->held) result.push_back(i);
  }
  return result;
}

void ControlBindings::standStill(const Binding& place) {
  if (Container* const container = place.container.get())
    container->showValue(place.index, place.held, {});
}

void ControlBindings::write(const Container& container, std::size_t index) {
  Binding* const place = find(container, index);
  if (!place) return;
  if (!place->parameter) return standStill(*place);
  place->held = container.value(index);
  place->shown = std::numeric_limits<float>::quiet_NaN();
  // The last line: observers may destroy what is used above.
  place->parameter->setValue(place->mapping.valueAt(place->held));
}

void ControlBindings::update(platform::AUParameter& parameter, const std::string&) {
  const auto entry = places_.find(parameter.address());
  if (entry == places_.end() || !audioUnit_) return;
  const float value = parameter.value();
  std::string text;
  for (Binding* const place : entry->second) {
    Container* const container = place->container.get();
    if (!container) continue;
    // A preset sets every parameter, and most of them to what they are.
    if (value == place->shown && container->value(place->index) == place->held) continue;
    place->shown = value;
    const std::string* const own = ownText(*container->paramKeys()[place->index], parameter, value);
    if (!own && text.empty()) text = parameter.stringFromValue(value);
    container->showValue(place->index, place->mapping.positionOf(value), own ? *own : text);
    place->held = container->value(place->index);
  }
}

}  // namespace orvane
