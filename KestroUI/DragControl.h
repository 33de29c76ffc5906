#pragma once

#include <optional>

#include "KestroUI/KestroControl.h"

namespace kestroui {

/// Base of the controls that are dragged. A drag moves the value from where it is, never to where
/// it was touched; with Shift ten times finer. The second tap of a double tap moves nothing and
/// calls doubleTapped; so does Return. User-interface thread only.
class DragControl : public KestroControl {
 public:
  enum class Axis { vertical, horizontal };

  /// The position from which the fill starts: 0 at first, 0.5 for values around a centre.
  float origin() const { return origin_; }
  void setOrigin(float position);

  void touchBegan(const toolkit::Touch& touch) override;
  void touchMoved(const toolkit::Touch& touch) override;
  void touchEnded(const toolkit::Touch& touch) override;
  void touchCancelled(const toolkit::Touch& touch) override;
  bool keyPressed(const platform::KeyEvent& event) override;

 protected:
  virtual Axis dragAxis() const { return Axis::vertical; }
  /// Points of a drag through the whole range.
  virtual double dragLength() const { return 200; }

 private:
  enum class Phase { none, dragging, secondTap };

  void startDrag();

  float origin_ = 0;
  std::optional<int> touchId_;
  Phase phase_ = Phase::none;
  /// As drawn.
  DraggedShare share_;
};

}  // namespace kestroui
