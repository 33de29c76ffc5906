#pragma once

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "KestroUI/KestroControl.h"
#include "KestroUI/ListPopup.h"

namespace kestroui {

/// One entry of several, chosen from a list that opens over the whole editor. Its value is raw: the
/// minimum for the first entry, one more for each further one.
class DropDownList : public KestroControl, public ListPopupOwner {
 public:
  DropDownList();

  const std::vector<std::string>& entries() const { return entries_; }
  /// The range keeps its minimum. Closes the list.
  void setEntries(std::vector<std::string> entries);
  /// From 0.
  int selectedIndex() const;

  bool isOpen() const { return popup_ != nullptr; }
  /// Does nothing without entries, or outside a view tree.
  void open();
  void close();

  const std::vector<std::string>& popupEntries() const override { return entries_; }
  int popupSelection() const override { return selectedIndex(); }
  /// Closes, then sends. May destroy the control.
  void popupDidChoose(int index) override;
  void popupDidCancel() override { close(); }
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
  std::unique_ptr<ListPopup> popup_;
};

}  // namespace kestroui
