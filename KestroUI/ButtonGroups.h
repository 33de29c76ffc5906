#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "KestroUI/KestroControl.h"
#include "platform/Geometry.h"
#include "platform/Path.h"

namespace kestroui {

/// Rows and columns of equal cells that suit the place they have: one row where it is wide, a
/// column or several rows where it is tall.
struct ButtonGrid {
  int count = 0;
  int columns = 1;
  int rows = 1;
  platform::Size cell;

  /// The grid of `count` cells in `size` whose cells come closest to `wanted`.
  static ButtonGrid fitting(int count, const platform::Size& size, const platform::Size& wanted);

  /// The last row's cells are stretched to fill it.
  platform::Rect frame(int index) const;
  /// -1 outside.
  int indexAt(platform::Point point) const;
};

/// Base of the groups of buttons in a ButtonGrid, each with its title. A touch means the button below
/// it at once, and may slide on to others.
class ButtonGroup : public KestroControl {
 public:
  const std::vector<std::string>& titles() const { return titles_; }

  double bestHeight(const platform::Size& available) const override;

 protected:
  platform::Accessibility::Role accessibilityRole() const override {
    return platform::Accessibility::Role::choice;
  }
  Grasp grasp(const toolkit::Touch&) override { return Grasp::value; }
  void pressed(const toolkit::Touch& touch) override { slideTo(touch.locationIn(*this)); }
  void slid(const toolkit::Touch& touch) override { slideTo(touch.locationIn(*this)); }
  /// The finger is at `point`; may destroy the control.
  virtual void slideTo(platform::Point point) = 0;

  void setButtonTitles(std::vector<std::string> titles);
  /// Letters of the longest title that is shown, at least 1: what the cells make room for.
  void setMaxTitleLength(std::size_t letters) { maxTitleLength_ = letters; }
  ButtonGrid grid(const platform::Size& size) const;
  bool hasRoom() const { return bounds().width >= 4 && bounds().height >= 4; }
  bool isMuted() const { return isInactive() || !isEnabled(); }
  /// For the titles of cells of this size.
  platform::Font cellFont(const platform::Size& cell) const;
  void paintCell(platform::Canvas& canvas, const platform::Rect& cell, bool isLit) const;
  void paintTitle(platform::Canvas& canvas, int index, const platform::Rect& cell,
                  const platform::Font& font, bool isLit) const;
  platform::Color titleColor(bool isLit) const;

 private:
  std::vector<std::string> titles_;
  std::size_t maxTitleLength_ = 1;
};

/// A group of buttons of which one is on. Its value is raw: the minimum for the first button, one
/// more for each further one.
class RadioButtons : public ButtonGroup {
 public:
  /// `isWaveform` draws the titles that name a waveform as icons.
  explicit RadioButtons(std::vector<std::string> titles = {}, bool isWaveform = false);

  /// One button each; the range keeps its minimum.
  void setTitles(std::vector<std::string> titles);
  bool isWaveform() const { return isWaveform_; }
  /// From 0.
  int selectedIndex() const;
  /// Shows the button as chosen; sends nothing.
  void setSelectedIndex(int index);

  bool keyPressed(const platform::KeyEvent& event) override;
  void paint(platform::Canvas& canvas) override;

 protected:
  void slideTo(platform::Point point) override;
  std::string ownValueText() const override;

 private:
  /// Where the buttons are: in the middle of a place that is taller than they need.
  platform::Rect face() const;

  std::vector<platform::Path> icons_;
  bool isWaveform_ = false;
};

/// A group of switches, each a bit of the one raw value: the first is 1, the second 2, the third 4.
class BitFlagsGroup : public ButtonGroup {
 public:
  /// One switch each, at most 24, which a float holds exactly.
  void setTitles(std::vector<std::string> titles);
  bool isOn(int index) const;

  bool wheelTurned(const platform::WheelEvent&) override { return false; }
  /// Arrows, Home and End go from switch to switch; Space and Return switch.
  bool keyPressed(const platform::KeyEvent& event) override;
  void paint(platform::Canvas& canvas) override;

 protected:
  void letGo(int) override { painting_ = Painting::none; }
  /// Sets the switch there as the touch set the first one, so that it may slide over many.
  void slideTo(platform::Point point) override;
  /// The switches that are on.
  std::string ownValueText() const override;

 private:
  enum class Painting { none, on, off };

  std::uint32_t bits() const;

  Painting painting_ = Painting::none;
  /// The switch that the keyboard is at.
  int cursor_ = 0;
};

}  // namespace kestroui
