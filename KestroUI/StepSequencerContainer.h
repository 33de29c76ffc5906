#pragma once

#include "KestroUI/ValueStripContainer.h"

namespace kestroui {

/// The steps of a sequencer, a parameter each.
class StepSequencerContainer : public ValueStripContainer {};

}  // namespace kestroui
