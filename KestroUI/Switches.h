#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include "KestroUI/KestroControl.h"
#include "platform/Font.h"

namespace kestroui {

/// A switch: value 1 is on, 0 off. With titles it shows its state's text; without, a pill, or in a
/// small square a round light. Switches when it is touched, not when it is left.
class OnOffButton : public KestroControl {
 public:
  /// Whether a touch switches it, or only tells its targets of touchDown, which switch it.
  enum class Switching { byTouch, byOwner };

  explicit OnOffButton(std::vector<std::string> titles = {});

  /// None; one for both states; or one for off and one for on.
  const std::vector<std::string>& titles() const { return titles_; }
  void setTitles(std::vector<std::string> titles);
  bool isOn() const { return value() > 0.5f; }
  /// Shows the state; sends nothing.
  void setOn(bool on);
  Switching switching() const { return switching_; }
  void setSwitching(Switching switching) { switching_ = switching; }

  bool keyPressed(const platform::KeyEvent& event) override;
  double bestHeight(const platform::Size& available) const override;
  void paint(platform::Canvas& canvas) override;

 protected:
  Grasp grasp(const toolkit::Touch&) override {
    return switching_ == Switching::byTouch ? Grasp::value : Grasp::nothing;
  }
  void pressed(const toolkit::Touch&) override { changeValue(switchedValue()); }
  /// The value that a touch switches to.
  virtual float switchedValue() const { return isOn() ? 0.0f : 1.0f; }
  platform::Accessibility::Role accessibilityRole() const override {
    return platform::Accessibility::Role::toggle;
  }
  std::string ownValueText() const override { return isOn() ? "On" : "Off"; }

 private:
  bool isLight(const platform::Size& size) const;
  void paintLight(platform::Canvas& canvas, bool lit) const;
  void paintPill(platform::Canvas& canvas, bool lit) const;
  void paintTitle(platform::Canvas& canvas, bool lit) const;

  std::vector<std::string> titles_;
  Switching switching_ = Switching::byTouch;
};

/// A button that records: stopped, armed (it waits for its sound or its bar) or running. A value of
/// two states is stopped or running; one of three is armed by a touch, and it is the processor that
/// lets it run.
class RecButton : public OnOffButton {
 public:
  enum class State { stopped, armed, running };

  RecButton();

  State state() const;
  /// Of a value of two states: switched on, but not running yet.
  void setWaiting(bool waiting);

  void paint(platform::Canvas& canvas) override;

 protected:
  float switchedValue() const override;

 private:
  bool waiting_ = false;
};

/// A control that is 1 while it is pressed and 0 otherwise.
class MomentaryButton : public KestroControl {
 public:
  MomentaryButton();

  const std::string& title() const { return title_; }
  void setTitle(const std::string& title);

  bool wheelTurned(const platform::WheelEvent&) override { return false; }
  bool keyPressed(const platform::KeyEvent& event) override;
  double bestHeight(const platform::Size& available) const override {
    return std::min(available.height, lineFaceHeight());
  }
  void paint(platform::Canvas& canvas) override;

 protected:
  Grasp grasp(const toolkit::Touch&) override { return Grasp::value; }
  void pressed(const toolkit::Touch&) override { changeValue(1); }
  void letGo(int) override { changeValue(0); }
  platform::Accessibility::Role accessibilityRole() const override {
    return platform::Accessibility::Role::button;
  }

 private:
  std::string title_;
};

}  // namespace kestroui
