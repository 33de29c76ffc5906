#pragma once

#include "KestroUI/SequencerView.h"
#include "KestroUI/ShapeContainer.h"

namespace kestroui {

/// Base of the containers of a row of steps, a key for each step. The live value of the own key is
/// the number of the step that plays, from 0, while its modulation flag is up.
class SequencerContainer : public ShapeContainer {
 public:
  void updateModulation() override { sequencer_->setPlayhead(liveValue(0)); }

 protected:
  void setSequencer(SequencerView& sequencer) {
    sequencer_ = &sequencer;
    setShape(sequencer);
  }

 private:
  SequencerView* sequencer_ = nullptr;
};

}  // namespace kestroui
