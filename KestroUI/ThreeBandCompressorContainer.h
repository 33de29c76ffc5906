#pragma once

#include "KestroUI/ValueStripContainer.h"

namespace kestroui {

/// The compressors of three bands.
class ThreeBandCompressorContainer : public ValueStripContainer {};

}  // namespace kestroui
