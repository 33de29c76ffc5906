#pragma once

#include "KestroUI/ValueStripContainer.h"

namespace kestroui {

/// A pad: the positions of its two axes, and its on and hold switches.
class XYControlContainer : public ValueStripContainer {};

}  // namespace kestroui
