#include "KestroUI/TimeStopXYContainer.h"

#include <utility>

namespace kestroui {

void TimeStopXYContainer::padTouched(bool touched) {
  touched_ = touched;
  if (touched) {
    if (!onOffSwitch() || onOffSwitch()->isOn()) return;
    startedByTouch_ = true;
    switchOn(true);
  } else if (startedByTouch_ && !isHolding()) {
    startedByTouch_ = false;
    switchOn(false);
  }
}

void TimeStopXYContainer::holdSwitched() {
  if (isHolding() || touched_) return;
  if (std::exchange(startedByTouch_, false)) switchOn(false);
}

}  // namespace kestroui
