#include "KestroUI/OnOffContainer.h"

#include <utility>

namespace kestroui {

OnOffContainer::OnOffContainer(std::vector<std::string> titles) : button_(std::move(titles)) {
  setControl(button_);
}

void OnOffContainer::setStringValues(const std::vector<std::string>& values) {
  button_.setTitles(values);
}

}  // namespace kestroui
