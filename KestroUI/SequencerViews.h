#pragma once

#include "KestroUI/ShapeControl.h"

namespace kestroui {

/// Base of the rows of steps: a column for each value, drawn across in one stroke, and a mark on
/// the step that plays.
class SequencerView : public ShapeControl {
 public:
  /// The step that plays, from 0; fractions are between two steps. None, and what lies outside the
  /// steps, shows no mark.
  std::optional<float> playhead() const { return playhead_; }
  void setPlayhead(std::optional<float> step);

 protected:
  std::vector<Handle> handles() const override;
  std::optional<std::size_t> handleAt(platform::Point location) const override;
  bool isDrawn() const override { return true; }
  /// The live value is the place of the playhead.
  bool showsLive() const override { return false; }

  platform::Rect column(std::size_t index) const;
  bool plays(std::size_t index) const;
  /// Columns, four of them a group, and the level from which the values count.
  void paintColumns(platform::Canvas& canvas, const platform::Rect& plot) const;

 private:
  std::optional<float> playhead_;
};

/// A row of bars, one for each step, that rise from the bottom or from the middle.
class StepSequencerView : public SequencerView {
 protected:
  void paintShape(platform::Canvas& canvas, const platform::Rect& plot) override;
  /// The bars are the handles.
  void paintHandle(platform::Canvas&, const Handle&, Plot::HandleState) override {}
};

/// The points of a sequencer that glides: a smooth curve through the middle of each step.
class CurveSequencerView : public SequencerView {
 protected:
  void paintShape(platform::Canvas& canvas, const platform::Rect& plot) override;
  void paintHandle(platform::Canvas& canvas, const Handle& handle,
                   Plot::HandleState state) override;
};

}  // namespace kestroui
