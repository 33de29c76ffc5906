#pragma once

#include <functional>

#include "toolkit/Label.h"

namespace orvane {

/// A text that is tapped like a button; Space and Return tap it while it has the keyboard. Only the
/// text itself is hit, not all of the frame. User-interface thread only.
class LinkLabel : public toolkit::Label {
 public:
  LinkLabel();

  std::function<void()> tapped;

  platform::Accessibility accessibility() const override;
  bool canBecomeFirstResponder() const override { return true; }
  void firstResponderChanged() override { setNeedsDisplay(); }
  bool pointInside(platform::Point point) const override;
  void touchBegan(const toolkit::Touch& touch) override;
  bool keyPressed(const platform::KeyEvent& event) override;
  void hoverChanged(bool hovered) override;
  void paint(platform::Canvas& canvas) override;

 private:
  /// Where the text is, by its alignment.
  platform::Rect textPlace(double width) const;
  void tap();

  bool hovered_ = false;
};

}  // namespace orvane
