#pragma once

#include "KestroUI/ValueStripContainer.h"

namespace kestroui {

/// A waveshaper whose curve is a table of points.
class TableWaveshaperContainer : public ValueStripContainer {};

}  // namespace kestroui
