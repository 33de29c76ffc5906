#pragma once

#include "KestroUI/SliderContainer.h"

namespace orvane {

/// A slider that shows the live value of its parameter while that is modulated.
class AUSliderContainer : public kestroui::SliderContainer {
 public:
  void updateModulation() override;
};

}  // namespace orvane
