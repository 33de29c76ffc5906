#pragma once

#include "KestroUI/ValueStripContainer.h"

namespace kestroui {

/// A value that can be muted.
class MutableContainer : public ValueStripContainer {};

}  // namespace kestroui
