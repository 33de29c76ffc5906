#pragma once

#include "KestroUI/XYControlContainer.h"

namespace kestroui {

/// The pad of an effect that stops time: it is on while the pad is touched, and stays on while the
/// hold switch is.
class TimeStopXYContainer : public XYControlContainer {
 protected:
  void padTouched(bool touched) override;
  void holdSwitched() override;

 private:
  bool isHolding() { return holdSwitch() && holdSwitch()->isOn(); }

  bool touched_ = false;
  /// It was the pad that switched it on.
  bool startedByTouch_ = false;
};

}  // namespace kestroui
