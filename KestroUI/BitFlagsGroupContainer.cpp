#include "KestroUI/BitFlagsGroupContainer.h"

namespace kestroui {

BitFlagsGroupContainer::BitFlagsGroupContainer(const std::vector<std::string>& flags) {
  setControl(group_);
  setFlags(flags);
}

void BitFlagsGroupContainer::setFlags(const std::vector<std::string>& flags) {
  group_.setTitles(flags);
}

Container::ValueForm BitFlagsGroupContainer::valueForm(const std::string&) const {
  return ValueForm::raw;
}

void BitFlagsGroupContainer::setStringValues(const std::vector<std::string>& values) {
  if (group_.titles().empty()) setFlags(values);
}

}  // namespace kestroui
