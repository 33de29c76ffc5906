#pragma once

#include "KestroUI/SequencerContainer.h"
#include "KestroUI/StepSequencerView.h"

namespace kestroui {

/// The steps of a sequencer as bars, a key each.
class StepSequencerContainer : public SequencerContainer {
 public:
  StepSequencerContainer() { setSequencer(stepSequencerView_); }

  StepSequencerView& stepSequencerView() { return stepSequencerView_; }

 private:
  StepSequencerView stepSequencerView_;
};

}  // namespace kestroui
