#pragma once

#include "KestroUI/Container.h"
#include "KestroUI/RecButton.h"

namespace kestroui {

/// A recording switch with its title: red, whatever the colour of its section. Of a parameter with
/// two states the live value, where there is one, tells whether it runs already or is only armed;
/// one with three states (stopped, armed, running) says so itself.
class RecContainer : public Container {
 public:
  RecContainer();

  RecButton& button() { return button_; }

  void setControlColor(platform::Color) override {}
  void setColors(const std::vector<platform::Color>&) override {}
  void setValueRange(float minimum, float maximum) override;
  /// The names of its states.
  void setStringValues(const std::vector<std::string>& values) override;
  void updateModulation() override;

 private:
  RecButton button_;
};

}  // namespace kestroui
