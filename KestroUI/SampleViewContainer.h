#pragma once

#include "KestroUI/ValueStripContainer.h"

namespace kestroui {

/// A sample with its start, end and loop.
class SampleViewContainer : public ValueStripContainer {};

}  // namespace kestroui
