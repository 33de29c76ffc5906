#include "KestroUI/SimpleButtonContainer.h"

namespace kestroui {

SimpleButtonContainer::SimpleButtonContainer() {
  setControl(button_);
  setDisplayTitle(false);
}

void SimpleButtonContainer::setTitle(const std::string& title) {
  Container::setTitle(title);
  button_.setTitle(title);
}

}  // namespace kestroui
