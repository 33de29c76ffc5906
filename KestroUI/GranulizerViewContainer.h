#pragma once

#include "KestroUI/ValueStripContainer.h"

namespace kestroui {

/// The grains of a granular effect.
class GranulizerViewContainer : public ValueStripContainer {};

}  // namespace kestroui
