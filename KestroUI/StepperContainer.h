#pragma once

#include "KestroUI/Container.h"
#include "KestroUI/Stepper.h"

namespace kestroui {

/// A stepped value between minus and plus, with its title. The value is raw.
class StepperContainer : public Container {
 public:
  StepperContainer();

  Stepper& stepper() { return stepper_; }

  ValueForm valueForm(const std::string& key) const override;
  void setValueRange(float minimum, float maximum) override;
  void setStringValues(const std::vector<std::string>& values) override;
  void showValue(const std::string& key, float value, const std::string& text) override;

 private:
  Stepper stepper_;
};

}  // namespace kestroui
