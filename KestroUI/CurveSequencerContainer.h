#pragma once

#include "KestroUI/CurveSequencerView.h"
#include "KestroUI/SequencerContainer.h"

namespace kestroui {

/// The points of a sequencer that glides, a key each.
class CurveSequencerContainer : public SequencerContainer {
 public:
  CurveSequencerContainer() { setSequencer(curveSequencerView_); }

  CurveSequencerView& curveSequencerView() { return curveSequencerView_; }

 private:
  CurveSequencerView curveSequencerView_;
};

}  // namespace kestroui
