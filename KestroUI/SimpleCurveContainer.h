#pragma once

#include "KestroUI/ValueStripContainer.h"

namespace kestroui {

/// A curve through points, a parameter each.
class SimpleCurveContainer : public ValueStripContainer {};

}  // namespace kestroui
