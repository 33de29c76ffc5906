#pragma once

#include "KestroUI/ValueStripContainer.h"

namespace kestroui {

/// The curve of a compressor.
class CompressorViewContainer : public ValueStripContainer {};

}  // namespace kestroui
