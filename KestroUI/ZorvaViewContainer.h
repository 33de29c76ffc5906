#pragma once

#include "KestroUI/ValueStripContainer.h"

namespace kestroui {

/// The view of the Zorva effect.
class ZorvaViewContainer : public ValueStripContainer {};

}  // namespace kestroui
