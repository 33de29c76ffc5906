#pragma once

#include "KestroUI/Container.h"
#include "KestroUI/MomentaryButton.h"

namespace kestroui {

/// A button that is 1 while it is pressed. It shows its title itself.
class SimpleButtonContainer : public Container {
 public:
  SimpleButtonContainer();

  MomentaryButton& button() { return button_; }

  void setTitle(const std::string& title) override;

 private:
  MomentaryButton button_;
};

}  // namespace kestroui
