#pragma once

#include "KestroUI/ValueStripContainer.h"

namespace kestroui {

/// The compressor of one band.
class BandCompressorContainer : public ValueStripContainer {};

}  // namespace kestroui
