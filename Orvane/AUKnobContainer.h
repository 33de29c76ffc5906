#pragma once

#include "KestroUI/KnobContainer.h"

namespace orvane {

/// A knob that shows the live value of its parameter while that is modulated.
class AUKnobContainer : public kestroui::KnobContainer {
 public:
  void updateModulation() override;
};

}  // namespace orvane
