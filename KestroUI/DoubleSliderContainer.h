#pragma once

#include "KestroUI/ValueStripContainer.h"

namespace kestroui {

/// A range with a lower and an upper end.
class DoubleSliderContainer : public ValueStripContainer {};

}  // namespace kestroui
