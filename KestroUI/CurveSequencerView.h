#pragma once

#include "KestroUI/SequencerView.h"

namespace kestroui {

/// The points of a sequencer that glides: a smooth curve through the middle of each step.
class CurveSequencerView : public SequencerView {
 protected:
  void paintShape(platform::Canvas& canvas, const platform::Rect& plot) override;
  void paintHandle(platform::Canvas& canvas, const Handle& handle,
                   Plot::HandleState state) override;
};

}  // namespace kestroui
