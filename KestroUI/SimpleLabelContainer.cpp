#include "KestroUI/SimpleLabelContainer.h"

namespace kestroui {

SimpleLabelContainer::SimpleLabelContainer() {
  setControl(label_);
  setDisplayTitle(false);
  setMappable(false);
}

void SimpleLabelContainer::setTitle(const std::string& title) {
  Container::setTitle(title);
  if (valueText().empty()) label_.setText(title);
}

void SimpleLabelContainer::showValue(const std::string& key, float value, const std::string& text) {
  Container::showValue(key, value, text);
  if (isOwnKey(key)) label_.setText(text.empty() ? title() : text);
}

}  // namespace kestroui
