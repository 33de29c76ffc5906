#include "KestroUI/FilterViewContainer.h"

namespace kestroui {

using platform::ControlEvent;

FilterViewContainer::FilterViewContainer() {
  addSubview(filterView_);
  filterView_.addTarget<&FilterViewContainer::handleValueChanged>(*this,
                                                                  ControlEvent::valueChanged);
  filterView_.addTarget<&FilterViewContainer::onEditingDidBegin>(*this,
                                                                 ControlEvent::editingDidBegin);
  filterView_.addTarget<&FilterViewContainer::onEditingDidEnd>(*this, ControlEvent::editingDidEnd);
  filterView_.doubleTapped = [this] { doubleTap(); };
}

bool FilterViewContainer::isResonance(const std::string& key) const {
  return paramKeys().size() > 1 && paramKeys()[1]->key() == key;
}

Container::ValueForm FilterViewContainer::valueForm(const std::string& key) const {
  return isResonance(key) ? ValueForm::raw : ValueForm::position;
}

float FilterViewContainer::value(const std::string& key) const {
  return isResonance(key) ? filterView_.resonance() : filterView_.frequencyPosition();
}

void FilterViewContainer::showValue(const std::string& key, float value, const std::string& text) {
  if (isResonance(key))
    filterView_.setResonance(value);
  else if (isOwnKey(key))
    filterView_.setFrequencyPosition(value);
  Container::showValue(key, value, text);
}

void FilterViewContainer::setControlColor(platform::Color color) {
  Container::setControlColor(color);
  filterView_.setAccentColor(accent());
}

void FilterViewContainer::setColors(const std::vector<platform::Color>& colors) {
  Container::setColors(colors);
  filterView_.setAccentColor(accent());
}

void FilterViewContainer::setInactive(bool inactive) {
  Container::setInactive(inactive);
  filterView_.setInactive(inactive);
}

void FilterViewContainer::draw(const platform::Rect& rect) {
  Container::draw(rect);
  filterView_.setFrame(controlFrame());
}

}  // namespace kestroui
