#pragma once

#include "KestroUI/ValueStripContainer.h"

namespace kestroui {

/// A place in a wavetable.
class WavetableContainer : public ValueStripContainer {};

}  // namespace kestroui
