#pragma once

#include "KestroUI/Container.h"
#include "KestroUI/PositionRange.h"
#include "KestroUI/Slider.h"

namespace kestroui {

/// A slider with its title.
class SliderContainer : public Container {
 public:
  SliderContainer();

  Slider& slider() { return slider_; }

  void setValueRange(float minimum, float maximum) override;
  void setStringValues(const std::vector<std::string>& values) override;

 private:
  Slider slider_;
  PositionRange range_;
};

}  // namespace kestroui
