#pragma once

#include "KestroUI/ValueStripContainer.h"

namespace kestroui {

/// The points of a sequencer that glides, a parameter each.
class CurveSequencerContainer : public ValueStripContainer {};

}  // namespace kestroui
