#pragma once

#include "KestroUI/Container.h"
#include "KestroUI/Knob.h"
#include "KestroUI/PositionRange.h"

namespace kestroui {

/// A knob with its title.
class KnobContainer : public Container {
 public:
  KnobContainer();

  Knob& knob() { return knob_; }
  const Knob& knob() const { return knob_; }

  void setValueRange(float minimum, float maximum) override;
  void setStringValues(const std::vector<std::string>& values) override;

 private:
  Knob knob_;
  PositionRange range_;
};

}  // namespace kestroui
