#include "Orvane/ControlBuilder.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "KestroUI/ChoiceContainers.h"
#include "KestroUI/DisplayContainers.h"
#include "KestroUI/DragControl.h"
#include "KestroUI/MultipleContainer.h"
#include "KestroUI/ShapeContainer.h"
#include "KestroUI/ValueContainers.h"
#include "Orvane/AUFilterViewContainer.h"
#include "Orvane/AUValueContainers.h"
#include "Orvane/ControlFactory.h"
#include "Orvane/ParameterMapping.h"

namespace orvane {

using kestroui::Container;
using kestroui::ControlType;

ControlBuilder::ControlBuilder(platform::AudioUnit* audioUnit, const DSPParameters& parameters,
                               const std::vector<Key>& known)
    : audioUnit_(audioUnit), parameters_(parameters) {
  for (const Key& key : known) known_.emplace(key->key(), key);
}

ControlBuilder::Key ControlBuilder::plainKey(const platform::AUParameter& parameter) {
  kestroui::ParameterUISettings settings;
  settings.displayName = parameter.displayName();
  if (parameter.unit() == platform::AudioUnitParameterUnit::boolean)
    settings.controlType = ControlType::onOff;
  else if (parameter.unit() == platform::AudioUnitParameterUnit::indexed)
    settings.controlType = ControlType::dropdownList;
  return std::make_shared<kestroui::ParamKey>(parameter.key(), std::move(settings));
}

const std::string& ControlBuilder::parameterKey(const Container& container,
                                                const std::string& key) {
  return dynamic_cast<const AUFilterViewContainer*>(&container) ? DSPParameters::parameterKey(key)
                                                                : key;
}

std::shared_ptr<Container> ControlBuilder::build(const Key& key) {
  std::shared_ptr<Container> container = make(*key);
  if (!container) return nullptr;
  container->setParamKeys(keysOf(key));
  applySettings(*container, *key);
  applyParameters(*container);
  applyDisplay(*container);
  watch(*container);
  return container;
}

std::shared_ptr<Container> ControlBuilder::make(const kestroui::ParamKey& key) const {
  const kestroui::ParameterUISettings& settings = key.settings();
  if (settings.container) return settings.container;
  switch (settings.controlType) {
    case ControlType::onOff:
      return std::make_shared<kestroui::OnOffContainer>(stringValues(key));
    case ControlType::radioButtons:
    case ControlType::radioWaveForm:
      return std::make_shared<kestroui::RadioContainer>(settings.controlType ==
                                                        ControlType::radioWaveForm);
    case ControlType::multiple:
      return std::make_shared<kestroui::MultipleContainer>();
    case ControlType::waveformKnob:
      // Without a live value there is nothing to follow at each frame.
      if (audioUnit_ && audioUnit_->getOutputValues(key.key()))
        return std::make_shared<AUWaveformKnobContainer>();
      return std::make_shared<kestroui::WaveformKnobContainer>();
    case ControlType::dropdownList:
      return std::make_shared<kestroui::DropDownListContainer>();
    default:
      return ControlFactory::container(settings.controlType);
  }
}

namespace {

/// The key as a container may hold it. The key of a ready-made control owns that control, so the
/// two would keep each other alive.
ControlBuilder::Key withoutContainer(const ControlBuilder::Key& key) {
  if (!key->settings().container) return key;
  kestroui::ParameterUISettings settings = key->settings();
  settings.container = nullptr;
  return std::make_shared<kestroui::ParamKey>(key->key(), std::move(settings));
}

}  // namespace

std::vector<std::string> ControlBuilder::attachedParameters(const kestroui::ParamKey& key) const {
  std::vector<std::string> attached = key.settings().attachedParameters;
  if (key.settings().controlType != ControlType::threeBandCompressor) return attached;
  for (const std::string& band : kestroui::ThreeBandCompressorContainer::bandKeys())
    for (const std::string& name : {band, key.key() + band}) {
      const bool known =
          name == key.key() || std::find(attached.begin(), attached.end(), name) != attached.end();
      if (!known && parameters_[name]) attached.push_back(name);
    }
  return attached;
}

std::vector<ControlBuilder::Key> ControlBuilder::keysOf(const Key& key) const {
  std::vector<Key> keys{withoutContainer(key)};
  // The attached names of a flag group are its flags: bits of the one parameter.
  if (key->settings().controlType == ControlType::bitFlagsGroup) return keys;
  for (const std::string& attached : attachedParameters(*key)) {
    if (const auto entry = known_.find(attached); entry != known_.end())
      keys.push_back(withoutContainer(entry->second));
    else if (const platform::AUParameter* parameter = parameters_[attached])
      keys.push_back(plainKey(*parameter));
    else
      keys.push_back(std::make_shared<kestroui::ParamKey>(attached));
  }
  return keys;
}

std::vector<std::string> ControlBuilder::stringValues(const kestroui::ParamKey& key) const {
  if (!key.settings().stringValues.empty() || !audioUnit_) return key.settings().stringValues;
  return audioUnit_->stringValuesFor(key.key());
}

void ControlBuilder::applySettings(Container& container, const kestroui::ParamKey& key) const {
  const kestroui::ParameterUISettings& settings = key.settings();
  container.setTitle(key.title());
  container.setInverted(settings.inverted);
  container.setLinks(settings.links);
  if (!settings.colors.empty()) container.setColors(settings.colors);
  if (settings.controlColor) container.setControlColor(*settings.controlColor);
  if (auto* flags = dynamic_cast<kestroui::BitFlagsGroupContainer*>(&container))
    flags->setFlags(settings.attachedParameters);
}

void ControlBuilder::applyParameters(Container& container) const {
  std::vector<std::optional<ParameterMapping>> mappings;
  for (std::size_t i = 0; i < container.paramKeys().size(); ++i) {
    const kestroui::ParamKey& key = *container.paramKeys()[i];
    const platform::AUParameter* parameter = parameters_[parameterKey(container, key.key())];
    mappings.emplace_back();
    if (parameter) {
      mappings.back().emplace(*parameter, container.valueForm(i));
      container.setKeyRange(i, parameter->minValue(), parameter->maxValue());
    }
    std::vector<std::string> values = stringValues(key);
    // A knob or a handle of a switch has two places.
    if (values.empty() && parameter &&
        parameter->unit() == platform::AudioUnitParameterUnit::boolean &&
        (dynamic_cast<kestroui::DragControl*>(container.control()) ||
         dynamic_cast<kestroui::MultipleContainer*>(&container) ||
         dynamic_cast<kestroui::ShapeContainer*>(&container)))
      values = {"Off", "On"};
    if (!values.empty()) container.setKeyStringValues(i, values);
  }
  container.positionOfValue = [mappings = std::move(mappings)](std::size_t index, float value) {
    return index < mappings.size() && mappings[index] ? mappings[index]->positionOf(value) : value;
  };
  if (auto* filter = dynamic_cast<AUFilterViewContainer*>(&container))
    filter->audioUnit = audioUnit_;
}

void ControlBuilder::applyDisplay(Container& container) const {
  if (auto* scope = dynamic_cast<kestroui::OscilloscopeContainer*>(&container)) {
    std::vector<const platform::LiveBuffer*> buffers;
    for (const Key& key : container.paramKeys())
      if (audioUnit_)
        for (const platform::LiveBuffer* buffer : audioUnit_->liveBuffers(key->key()))
          buffers.push_back(buffer);
    scope->setBuffers(buffers);
  }
  if (!container.key()) return;
  const auto source = [unit = platform::Weak<platform::AudioUnit>(audioUnit_),
                       key = container.key()->key()] {
    return unit ? unit->sampleData(key) : nullptr;
  };
  if (auto* display = dynamic_cast<kestroui::SampleDataDisplay*>(&container))
    display->setDataSource(source);
}

void ControlBuilder::watch(Container& container) const {
  // A control that the plug-in has made may have been bound before.
  container.watchNothing();
  if (!audioUnit_) return;
  for (std::size_t i = 0; i < container.paramKeys().size(); ++i) {
    const std::string& name = parameterKey(container, container.paramKeys()[i]->key());
    container.watch(i, audioUnit_->getOutputValues(name), audioUnit_->isModulating(name));
  }
}

}  // namespace orvane
