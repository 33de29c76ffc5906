#include "KestroUI/DropDownListContainer.h"

#include <cmath>

#include "KestroUI/ValueNames.h"

namespace kestroui {

DropDownListContainer::DropDownListContainer() { setControl(list_); }

Container::ValueForm DropDownListContainer::valueForm(const std::string&) const {
  return ValueForm::raw;
}

void DropDownListContainer::setValueRange(float minimum, float maximum) {
  if (list_.entries().empty()) list_.setEntries(numbers(minimum, maximum));
  list_.setRange(minimum, maximum);
  list_.setStepCount(static_cast<int>(std::lround(list_.maximum() - list_.minimum())));
}

void DropDownListContainer::setStringValues(const std::vector<std::string>& values) {
  list_.setEntries(values);
}

void DropDownListContainer::setIsVisible(bool visible) {
  if (!visible) list_.close();
  Container::setIsVisible(visible);
}

}  // namespace kestroui
