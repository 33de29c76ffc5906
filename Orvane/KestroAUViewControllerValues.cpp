// The part of the controller that joins controls and parameters.

#include <algorithm>
#include <array>
#include <set>
#include <utility>

#include "KestroUI/ShapeContainers.h"
#include "Orvane/ControlBindings.h"
#include "Orvane/ControlBuilder.h"
#include "Orvane/KestroAUViewController.h"
#include "Orvane/MathUtils.h"
#include "Orvane/ParameterConnection.h"
#include "Orvane/ParameterMapping.h"
#include "Orvane/TypedValue.h"

namespace orvane {

using kestroui::Container;

namespace {

using Key = std::shared_ptr<kestroui::ParamKey>;

/// Calls `visit` with every parameter key that the sections of a page name.
template <class Visit>
void visitKeys(const Page& page, Visit visit) {
  for (const UISection& placement : page.sections) {
    const Section& section = *placement.section;
    if (section.stateParameter) visit(*section.stateParameter);
    if (section.feedbackParameter) visit(*section.feedbackParameter);
    for (const UIColumn& column : section.stack)
      for (const UIParameter& slot : column.params) {
        visit(slot.param);
        for (const auto& sibling : slot.siblings)
          if (sibling) visit(*sibling);
      }
  }
}

}  // namespace

// Connecting

void KestroAUViewController::connectViewWithAU() {
  platform::AudioUnit* const unit = audioUnit();
  // A view that is loaded later connects by itself.
  if (!unit || !isViewLoaded()) return;
  letGo();
  connection_.reset();
  heldParameters_.setAudioUnit(unit);
  if (displayLink_) tellAudioUnitOfUI(true);

  parameters_.registerParameters(*unit, unit->parametersKeys());

  // Before the controls read the present values, so that no change falls in between.
  connection_ = std::make_unique<ParameterConnection>(
      *unit, [this](platform::AUParameterAddress address) { parameterDidChange(address); },
      [this] { updateAllParameters(); });

  doubleTappedKey_.reset();
  tappedValues_.clear();
  bindings_->setAudioUnit(unit);
  controls_->clear();
  setupControls(keysToShow());
  updateVisibility();

  rebuildPresetList();
  presetSession_.wasLoaded();
}

std::vector<Key> KestroAUViewController::keysToShow() const {
  std::vector<Key> keys;
  if (settingsViewController_.design) keys = settingsViewController_.design->paramKeys();
  std::set<std::string> described;
  for (const Key& key : keys) described.insert(key->key());

  if (settingsViewController_.foot_stack)
    for (const Key& key : *settingsViewController_.foot_stack)
      if (key && described.insert(key->key()).second) keys.push_back(key);
  for (const auto& pageView : settingsViewController_.pageViews())
    visitKeys(pageView->page(), [&](const std::string& key) {
      const platform::AUParameter* parameter = parameters_[key];
      if (parameter && described.insert(key).second)
        keys.push_back(ControlBuilder::plainKey(*parameter));
    });
  return keys;
}

void KestroAUViewController::setupControls(const std::vector<Key>& keys) {
  ControlBuilder builder(audioUnit(), parameters_, keys);
  for (const Key& key : keys) {
    controls_->addKey(key);
    const std::shared_ptr<Container> container = builder.build(key);
    controls_->set(key, container);
    if (!container) continue;
    bindings_->bind(*container, parameters_);
    for (std::size_t i = 0; i < container->paramKeys().size(); ++i)
      if (const auto* parameter = bindings_->parameter(*container, i))
        parameters_.setObserver(bindings_, parameter->key());
    container->setMidiMappingEnabled(midiMappingEnabled_);
    container->delegate = {this, *this};
    container->addTarget<&KestroAUViewController::handleValueChanged>(
        *this, toolkit::ControlEvent::valueChanged);
  }
  update(midiMap_);
  applyLabelScale();
  updateAllParameters();
  if (settingsViewController_.isViewLoaded()) settingsViewController_.doLayout();
}

// From the control to the parameter

void KestroAUViewController::handleValueChanged(toolkit::Control& sender) {
  auto* container = dynamic_cast<Container*>(&sender);
  if (!container) return;
  const platform::Weak<KestroAUViewController> alive = this;
  const platform::Weak<Container> aliveContainer = container;
  // Whoever observes a parameter may destroy the container, or this.
  for (const std::size_t index : bindings_->moved(*container))
    if (alive && aliveContainer) bindings_->write(*container, index);
}

std::vector<platform::AUParameter*> KestroAUViewController::parametersOf(
    const Container& container, const std::vector<Key>& keys) const {
  std::vector<platform::AUParameter*> result;
  for (std::size_t i = 0; i < container.paramKeys().size(); ++i)
    if (std::find(keys.begin(), keys.end(), container.paramKeys()[i]) != keys.end())
      if (platform::AUParameter* parameter = bindings_->parameter(container, i))
        result.push_back(parameter);
  return result;
}

void KestroAUViewController::didBeginGesture(Container& container, const std::vector<Key>& keys) {
  const platform::Weak<KestroAUViewController> alive = this;
  for (platform::AUParameter* parameter : parametersOf(container, keys))
    if (alive && audioUnit()) heldParameters_.hold(*parameter);
}

void KestroAUViewController::didEndGesture(Container& container, const std::vector<Key>& keys) {
  const platform::Weak<KestroAUViewController> alive = this;
  for (platform::AUParameter* parameter : parametersOf(container, keys))
    if (alive && audioUnit()) heldParameters_.release(*parameter);
}

bool KestroAUViewController::inGesture(platform::AUParameter& parameter,
                                       const std::function<void()>& change) {
  const platform::Weak<KestroAUViewController> alive = this;
  const platform::Weak<platform::AudioUnit> unit = audioUnit();
  heldParameters_.hold(parameter);
  if (unit) change();
  if (alive && unit) heldParameters_.release(parameter);
  return static_cast<bool>(alive);
}

void KestroAUViewController::didDoubleTap(const Key& key) {
  doubleTappedKey_ = key;
  tappedValues_ = tappedValues(key);
  if (!doubleTapEnabled) return;
  if (doubleTapResetOnly) {
    reset();
    return;
  }
  std::vector<EnterValueOverlay::Entry> entries;
  std::size_t chosen = 0;
  for (const TappedValue& value : tappedValues_) {
    if (value.key->key() == key->key()) chosen = entries.size();
    const platform::AUParameter* parameter = parameters_[value.parameter];
    entries.push_back(
        {value.name, parameter ? TypedValue::text(*parameter, value.key->settings().stringValues,
                                                  parameter->value())
                               : std::string()});
  }
  enterValueOverlay_.setEntries(std::move(entries), chosen);
  view().bringSubviewToFront(enterValueOverlay_);
  enterValueOverlay_.setHidden(false);
}

std::vector<KestroAUViewController::TappedValue> KestroAUViewController::tappedValues(
    const Key& key) const {
  std::vector<TappedValue> result;
  if (!key) return result;
  const auto add = [&](const Container& container, std::size_t index) {
    const Key& tapped = container.paramKeys()[index];
    const std::string& name = ControlBuilder::parameterKey(container, tapped->key());
    const platform::AUParameter* const parameter = parameters_[name];
    if (!parameter && tapped->key() != key->key()) return;
    // The title of a control of several values is that of them all.
    std::string shown = container.paramKeys().size() == 1 ? container.title() : std::string();
    if (index > 0) shown = tapped->settings().displayName;
    if (shown.empty() && parameter) shown = parameter->displayName();
    result.push_back({tapped, name, shown.empty() ? tapped->key() : shown});
  };
  for (const auto& [own, container] : controls_->controls())
    for (const std::size_t index : container->tappedIndices())
      if (index < container->paramKeys().size()) add(*container, index);
  // Told by somebody else than a handle.
  const auto container = result.empty() ? (*controls_)[key] : nullptr;
  if (container && container->indexOf(key->key())) add(*container, *container->indexOf(key->key()));
  if (result.empty()) result.push_back({key, key->key(), key->key()});
  return result;
}

const KestroAUViewController::TappedValue* KestroAUViewController::doubleTappedValue() const {
  const auto found = std::find_if(
      tappedValues_.begin(), tappedValues_.end(),
      [this](const TappedValue& value) { return value.key->key() == doubleTappedKey_->key(); });
  return found == tappedValues_.end() ? nullptr : &*found;
}

void KestroAUViewController::enterValueOverlayDidChoose(std::size_t index) {
  if (index < tappedValues_.size()) doubleTappedKey_ = tappedValues_[index].key;
}

void KestroAUViewController::textFieldOverlayDidConfirm(TextFieldOverlay&,
                                                        const std::optional<std::string>& text) {
  auto* unit = audioUnit();
  const TappedValue* const tapped = doubleTappedValue();
  if (text && !text->empty() && unit && tapped) {
    const std::string key = tapped->parameter;
    auto* parameter = parameters_[key];
    const float value =
        parameter ? TypedValue::value(*parameter, tapped->key->settings().stringValues, *text)
                  : MathUtils::floatValue(*text);
    const auto change = [unit, key, value] { unit->setParameter(key, value); };
    if (!parameter)
      change();
    else if (!inGesture(*parameter, change))
      return;
  }
  enterValueOverlay_.setHidden(true);
}

void KestroAUViewController::reset() {
  const TappedValue* const tapped = doubleTappedValue();
  if (auto* unit = audioUnit(); unit && tapped) {
    const Key key = tapped->key;
    auto* parameter = parameters_[tapped->parameter];
    const float value = unit->defaultValueForKey(tapped->parameter);
    if (parameter && !inGesture(*parameter, [=] { parameter->setValue(value); })) return;
    const std::shared_ptr<Container> container = (*controls_)[key];
    if (container && container->control()) container->control()->setModulatedValue(0);
  }
  enterValueOverlay_.setHidden(true);
}

// From the parameter to the control

void KestroAUViewController::parameterDidChange(platform::AUParameterAddress address) {
  const platform::Weak<KestroAUViewController> alive = this;
  updateParameter(address);
  if (alive) presetSession_.follow(address);
}

void KestroAUViewController::updateParameter(platform::AUParameterAddress address) {
  const std::string* const known = parameters_.key(address);
  if (!known) return;
  // An observer may connect another audio unit, or close the editor.
  const platform::Weak<KestroAUViewController> alive = this;
  const std::string key = *known;
  parameters_.notify(key);
  if (!alive) return;
  updateDoubleFilters(address);
  settingsViewController_.updateSectionStates(key);
}

void KestroAUViewController::updateDoubleFilters(platform::AUParameterAddress address) {
  for (auto* const container : bindings_->doubleFilters(address)) {
    std::array<std::string, 6> keys;
    for (std::size_t i = 0; i < std::min(keys.size(), container->paramKeys().size()); ++i)
      keys[i] = container->paramKeys()[i]->key();
    updateDoubleFilterViewFrequencyAndMagnitudes(container->filterView(), keys[0], keys[1], keys[2],
                                                 keys[3], keys[4], keys[5]);
  }
}

void KestroAUViewController::updateDoubleFilterViewFrequencyAndMagnitudes(
    kestroui::DoubleFilterView& view, const std::string& lowPassFrequency,
    const std::string& lowPassResonance, const std::string& hiPassFrequency,
    const std::string& hiPassResonance, const std::string& lowPassGain,
    const std::string& hiPassGain) {
  // In the order of the view's values.
  const std::string* const keys[] = {&lowPassFrequency, &lowPassResonance, &hiPassFrequency,
                                     &hiPassResonance,  &lowPassGain,      &hiPassGain};
  for (std::size_t i = 0; i < std::size(keys); ++i) {
    const auto* parameter = parameters_[*keys[i]];
    if (!parameter) continue;
    const bool isFrequency = i == kestroui::DoubleFilterView::lowPassFrequency ||
                             i == kestroui::DoubleFilterView::hiPassFrequency;
    const ParameterMapping mapping(
        *parameter, isFrequency ? Container::ValueForm::pitch : Container::ValueForm::raw);
    view.setValue(i, mapping.positionOf(parameter->value()));
  }
  if (const auto* unit = audioUnit())
    view.setFilterMagnitudes(
        unit->magnitudesForFrequencies(view.frequencies(), {.lowPassFrequency = lowPassFrequency,
                                                            .lowPassResonance = lowPassResonance,
                                                            .hiPassFrequency = hiPassFrequency,
                                                            .hiPassResonance = hiPassResonance,
                                                            .lowPassGain = lowPassGain,
                                                            .hiPassGain = hiPassGain}));
}

void KestroAUViewController::updateAllParameters() {
  const platform::Weak<KestroAUViewController> alive = this;
  for (std::size_t i = 0; alive && i < parameters_.keys().size(); ++i)
    if (auto* parameter = parameters_[parameters_.keys()[i]])
      parameterDidChange(parameter->address());
}

}  // namespace orvane
