#pragma once

#include "KestroUI/ValueStripContainer.h"

namespace kestroui {

/// The curves of two compressors.
class DoubleCompressorViewContainer : public ValueStripContainer {};

}  // namespace kestroui
