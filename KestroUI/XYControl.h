#pragma once

#include "KestroUI/ShapeControl.h"

namespace kestroui {

/// A pad with one point: a value sideways and a value upwards. A touch brings the point there.
class XYControl : public ShapeControl {
 public:
  XYControl() { setAxes(0, 1); }

  /// Which of its values the point moves; an axis may have none.
  void setAxes(std::optional<std::size_t> x, std::optional<std::size_t> y);
  /// Shown as switched on: the pad glows. Off at first.
  void setLit(bool lit);

  /// The first finger is on the pad (true), or the last has left it.
  std::function<void(bool touched)> touchedChanged;

 protected:
  std::vector<Handle> handles() const override;
  bool jumpsToTouch() const override { return true; }
  void paintShape(platform::Canvas& canvas, const platform::Rect& plot) override;
  void touchedNow() override;

 private:
  std::optional<std::size_t> x_, y_;
  bool lit_ = false;
  bool touched_ = false;
};

}  // namespace kestroui
