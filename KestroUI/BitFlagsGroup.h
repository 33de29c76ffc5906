#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "KestroUI/ButtonGrid.h"
#include "KestroUI/KestroControl.h"

namespace kestroui {

/// A group of switches, each a bit of the one raw value: the first is 1, the second 2, the third 4.
class BitFlagsGroup : public KestroControl {
 public:
  BitFlagsGroup() = default;

  const std::vector<std::string>& titles() const { return titles_; }
  /// One switch each, at most 24, which a float holds exactly.
  void setTitles(std::vector<std::string> titles);
  bool isOn(int index) const;

  void touchBegan(const toolkit::Touch& touch) override;
  void touchMoved(const toolkit::Touch& touch) override;
  void touchEnded(const toolkit::Touch& touch) override;
  void touchCancelled(const toolkit::Touch& touch) override;
  bool wheelTurned(const platform::WheelEvent&) override { return false; }
  /// Arrows, Home and End go from switch to switch; Space and Return switch.
  bool keyPressed(const platform::KeyEvent& event) override;
  double bestHeight(const platform::Size& available) const override;
  void paint(platform::Canvas& canvas) override;

 protected:
  platform::Accessibility::Role accessibilityRole() const override {
    return platform::Accessibility::Role::choice;
  }
  /// The switches that are on.
  std::string ownValueText() const override;

 private:
  enum class Painting { none, on, off };

  ButtonGrid grid(const platform::Size& size) const;
  std::uint32_t bits() const;
  /// Sets the switch below `point` as the touch set the first one, so that it may slide over many.
  void slide(platform::Point point);

  std::vector<std::string> titles_;
  std::size_t longestTitle_ = 0;
  Painting painting_ = Painting::none;
  /// The switch that the keyboard is at.
  int cursor_ = 0;
};

}  // namespace kestroui
