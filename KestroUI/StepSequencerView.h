#pragma once

#include "KestroUI/SequencerView.h"

namespace kestroui {

/// A row of bars, one for each step, that rise from the bottom or from the middle.
class StepSequencerView : public SequencerView {
 protected:
  void paintShape(platform::Canvas& canvas, const platform::Rect& plot) override;
  /// The bars are the handles.
  void paintHandle(platform::Canvas&, const Handle&, Plot::HandleState) override {}
};

}  // namespace kestroui
