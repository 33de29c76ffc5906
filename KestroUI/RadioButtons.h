#pragma once

#include <string>
#include <vector>

#include "KestroUI/ButtonGrid.h"
#include "KestroUI/KestroControl.h"
#include "platform/Path.h"

namespace kestroui {

/// A group of buttons of which one is on. Its value is raw: the minimum for the first button, one
/// more for each further one. A touch chooses at once and may slide on to another button.
class RadioButtons : public KestroControl {
 public:
  /// `isWaveform` draws the titles that name a waveform as icons.
  explicit RadioButtons(std::vector<std::string> titles = {}, bool isWaveform = false);

  const std::vector<std::string>& titles() const { return titles_; }
  /// One button each; the range keeps its minimum.
  void setTitles(std::vector<std::string> titles);
  bool isWaveform() const { return isWaveform_; }
  /// From 0.
  int selectedIndex() const;
  /// Shows the button as chosen; sends nothing.
  void setSelectedIndex(int index);

  void touchBegan(const toolkit::Touch& touch) override;
  void touchMoved(const toolkit::Touch& touch) override;
  void touchEnded(const toolkit::Touch& touch) override;
  void touchCancelled(const toolkit::Touch& touch) override;
  bool keyPressed(const platform::KeyEvent& event) override;
  double bestHeight(const platform::Size& available) const override;
  void paint(platform::Canvas& canvas) override;

 protected:
  platform::Accessibility::Role accessibilityRole() const override {
    return platform::Accessibility::Role::choice;
  }
  std::string ownValueText() const override;

 private:
  ButtonGrid grid(const platform::Size& size) const;
  /// Where the buttons are: in the middle of a place that is taller than they need.
  platform::Rect face() const;
  void choose(platform::Point point);
  void paintCell(platform::Canvas& canvas, int index, const platform::Rect& cell,
                 const platform::Font& font);

  std::vector<std::string> titles_;
  std::vector<platform::Path> icons_;
  std::size_t longestTitle_ = 0;
  bool isWaveform_ = false;
};

}  // namespace kestroui
