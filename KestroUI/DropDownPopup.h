#pragma once

#include <optional>

#include "KestroUI/DropDownList.h"
#include "toolkit/View.h"

namespace kestroui {

/// The open list of a DropDownList. It covers the root view, so that a tap beside the list closes
/// it, and paints the list below or above its owner's face. Owned by the DropDownList.
class DropDownPopup : public toolkit::View {
 public:
  /// Adds itself to `root` and takes the keyboard.
  DropDownPopup(DropDownList& owner, toolkit::View& root);

  /// False when its place no longer fits: its owner is hidden or has moved, or the root was
  /// resized.
  bool isStillRight() const;
  /// Where the list is, in the root's coordinates.
  const platform::Rect& listFrame() const { return list_; }
  int highlightedIndex() const { return highlighted_; }

  void touchBegan(const toolkit::Touch& touch) override;
  void touchMoved(const toolkit::Touch& touch) override;
  void touchEnded(const toolkit::Touch& touch) override;
  void touchCancelled(const toolkit::Touch& touch) override;
  bool wheelTurned(const platform::WheelEvent& event) override;
  bool canBecomeFirstResponder() const override { return true; }
  bool keyPressed(const platform::KeyEvent& event) override;
  platform::Accessibility accessibility() const override;
  void paint(platform::Canvas& canvas) override;

 private:
  void place();
  int count() const;
  /// -1 outside the list.
  int indexAt(platform::Point point) const;
  void scrollTo(double offset);
  void highlight(int index);
  void paintRow(platform::Canvas& canvas, int index);

  DropDownList& owner_;
  platform::Rect ownerFrame_;
  platform::Rect list_;
  double rowHeight_ = 24;
  double offset_ = 0;
  int highlighted_ = -1;
  std::optional<int> touchId_;
  bool scrolled_ = false;
};

}  // namespace kestroui
