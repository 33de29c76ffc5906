#pragma once

#include "KestroUI/ValueStripContainer.h"

namespace kestroui {

/// An envelope of attack, decay, sustain and release.
class ADSRContainer : public ValueStripContainer {};

}  // namespace kestroui
