#pragma once

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "KestroUI/KestroControl.h"

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

  void touchEnded(const toolkit::Touch& touch) override;
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

}  // namespace kestroui
