#pragma once

#include <algorithm>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "KestroUI/KestroControl.h"
#include "toolkit/ModalView.h"

namespace kestroui {

class DropDownPopup;

/// One entry of several, chosen from a list that opens over the whole editor. Its value is raw: the
/// minimum for the first entry, one more for each further one.
class DropDownList : public KestroControl {
 public:
  DropDownList();
  ~DropDownList() override;

  const std::vector<std::string>& entries() const { return entries_; }
  /// The range keeps its minimum. Closes the list.
  void setEntries(std::vector<std::string> entries);
  /// From 0.
  int selectedIndex() const;

  bool isOpen() const { return popup_ != nullptr; }
  /// Does nothing without entries, or outside a view tree.
  void open();
  void close();
  /// The user chooses an entry: closes, then sends. May destroy the control.
  void choose(int index);

  bool wheelTurned(const platform::WheelEvent& event) override;
  bool keyPressed(const platform::KeyEvent& event) override;
  void setHidden(bool hidden) override;
  void didMoveToSuperview() override;
  double bestHeight(const platform::Size& available) const override {
    return std::min(available.height, lineFaceHeight());
  }
  void paint(platform::Canvas& canvas) override;

 protected:
  platform::Accessibility::Role accessibilityRole() const override {
    return platform::Accessibility::Role::choice;
  }
  std::string ownValueText() const override;

 private:
  std::vector<std::string> entries_;
  std::unique_ptr<DropDownPopup> popup_;
  /// Looks whether the list's owner still shows.
  foundation::Timer watch_;
};

/// The open list of a DropDownList. It covers the root view, so that a tap beside the list closes
/// it, and paints the list below or above its owner's face. Owned by the DropDownList.
class DropDownPopup : public toolkit::ModalView {
 public:
  /// Adds itself to `root` and takes the keyboard.
  DropDownPopup(DropDownList& owner, toolkit::View& root);

  /// False when its place no longer fits: its owner is hidden or has moved, or the root was
  /// resized.
  bool isStillRight() const;

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
