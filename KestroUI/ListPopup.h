#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "foundation/RunLoop.h"
#include "platform/Color.h"
#include "toolkit/ModalView.h"

namespace kestroui {

/// Whoever opens a list: what is in it, and what comes of it. User-interface thread only.
class ListPopupOwner {
 public:
  virtual ~ListPopupOwner() = default;

  /// Stays as it is while the list is open.
  virtual const std::vector<std::string>& popupEntries() const = 0;
  /// The entry that is chosen already, from 0; -1 for none.
  virtual int popupSelection() const { return -1; }
  /// Both have to close the list.
  virtual void popupDidChoose(int index) = 0;
  virtual void popupDidCancel() = 0;
};

/// A list that is open beside a view, for one of its entries to be chosen by mouse, finger or keys. It
/// covers the root view, so that a tap beside the list closes it, and closes when its place no longer
/// fits: the view is hidden or has moved, or the editor was resized. Held by its owner. User-interface
/// thread only.
class ListPopup : public toolkit::ModalView {
 public:
  struct Look {
    platform::Color accent;
    double faceScale = 1;
  };

  /// Opens it below or above `anchor`, which outlives it, and gives it the keyboard. None without
  /// entries, or outside a view tree.
  static std::unique_ptr<ListPopup> open(ListPopupOwner& owner, toolkit::View& anchor, Look look);
  /// Closes and frees it. True when it had the keyboard.
  static bool close(std::unique_ptr<ListPopup>& popup);

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
  ListPopup(ListPopupOwner& owner, toolkit::View& anchor, Look look);

  bool isStillRight() const;
  void place();
  int count() const;
  /// -1 outside the list.
  int indexAt(platform::Point point) const;
  void scrollTo(double offset);
  void highlight(int index);
  void paintRow(platform::Canvas& canvas, int index);

  ListPopupOwner& owner_;
  toolkit::View& anchor_;
  const Look look_;
  platform::Rect anchorFrame_;
  platform::Rect list_;
  double rowHeight_ = 24;
  double offset_ = 0;
  int highlighted_ = -1;
  std::optional<int> touchId_;
  bool scrolled_ = false;
  foundation::Timer watch_;
};

}  // namespace kestroui
