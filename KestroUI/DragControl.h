#pragma once

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

  bool keyPressed(const platform::KeyEvent& event) override;

 protected:
  Grasp grasp(const toolkit::Touch& touch) override;
  void pressed(const toolkit::Touch& touch) override;
  void slid(const toolkit::Touch& touch) override;
  virtual Axis dragAxis() const { return Axis::vertical; }
  /// Points of a drag through the whole range.
  virtual double dragLength() const { return 200; }

 private:
  float origin_ = 0;
  /// As drawn.
  DraggedShare share_;
};

}  // namespace kestroui
