#pragma once

#include "KestroUI/ValueStripContainer.h"

namespace kestroui {

/// The response of a low-pass and a high-pass filter.
class DoubleFilterViewContainer : public ValueStripContainer {};

}  // namespace kestroui
