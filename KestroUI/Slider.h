#pragma once

#include "KestroUI/DragControl.h"

namespace kestroui {

/// A straight slider, vertical where its place is taller than wide. The fill runs from `origin`;
/// while modulated, a mark beside the track shows the live value.
class Slider : public DragControl {
 public:
  Slider() = default;

  double bestHeight(const platform::Size& available) const override;
  void paint(platform::Canvas& canvas) override;

 protected:
  Axis dragAxis() const override;
  /// The handle's way, so that it stays under the finger; longer for very short sliders.
  double dragLength() const override;

 private:
  double handleLength() const;
};

}  // namespace kestroui
