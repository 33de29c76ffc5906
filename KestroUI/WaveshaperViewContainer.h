#pragma once

#include "KestroUI/ValueStripContainer.h"

namespace kestroui {

/// The curve of a waveshaper.
class WaveshaperViewContainer : public ValueStripContainer {};

}  // namespace kestroui
