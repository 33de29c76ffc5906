#pragma once

#include <algorithm>
#include <string>

#include "KestroUI/KestroControl.h"

namespace kestroui {

/// A control that is 1 while it is pressed and 0 otherwise.
class MomentaryButton : public KestroControl {
 public:
  MomentaryButton();

  const std::string& title() const { return title_; }
  void setTitle(const std::string& title);

  void touchBegan(const toolkit::Touch& touch) override;
  void touchEnded(const toolkit::Touch& touch) override;
  void touchCancelled(const toolkit::Touch& touch) override;
  bool wheelTurned(const platform::WheelEvent&) override { return false; }
  bool keyPressed(const platform::KeyEvent& event) override;
  double bestHeight(const platform::Size& available) const override {
    return std::min(available.height, lineFaceHeight());
  }
  void paint(platform::Canvas& canvas) override;

 protected:
  platform::Accessibility::Role accessibilityRole() const override {
    return platform::Accessibility::Role::button;
  }

 private:
  void release();

  std::string title_;
};

}  // namespace kestroui
