#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include "KestroUI/DragControl.h"

namespace kestroui {

/// A raw value between a minus and a plus button, which repeat while they are held. The value in
/// the middle can be dragged too, and typed after a double tap.
class Stepper : public DragControl {
 public:
  Stepper();

  /// Shown for the value; without one, the value's string or number is.
  void setText(const std::string& text);
  /// From the minimum up.
  void setValueNames(std::vector<std::string> names);
  void setValue(float value) override;

  double bestHeight(const platform::Size& available) const override {
    return std::min(available.height, lineFaceHeight());
  }
  void paint(platform::Canvas& canvas) override;

 protected:
  Grasp grasp(const toolkit::Touch& touch) override;
  void pressed(const toolkit::Touch& touch) override;
  void slid(const toolkit::Touch& touch) override;
  void letGo(int touchId) override;
  platform::Accessibility::Role accessibilityRole() const override {
    return platform::Accessibility::Role::slider;
  }
  std::string ownValueText() const override { return shownText(); }

 private:
  enum class Part { none, minus, text, plus };

  platform::Rect frameOf(Part part) const;
  void stepBy(int direction);
  void repeat();
  std::string shownText() const;

  std::vector<std::string> names_;
  std::string text_;
  Part pressed_ = Part::none;
  foundation::Timer repeat_;
};

}  // namespace kestroui
