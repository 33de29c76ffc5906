#pragma once

#include "KestroUI/ShapeContainer.h"
#include "KestroUI/Switches.h"
#include "KestroUI/XYControl.h"

namespace kestroui {

/// A pad with its switches. Every key that contains "OnOff" is the on/off state, every one that
/// contains "Hold" the hold state; of the others the first moves sideways and the second upwards.
/// There is a switch beside the pad for each state that has a key.
class XYControlContainer : public ShapeContainer {
 public:
  XYControlContainer();

  /// Null without a key for it.
  OnOffButton* onOffSwitch() { return on_.isUsed() ? &on_.button : nullptr; }
  OnOffButton* holdSwitch() { return hold_.isUsed() ? &hold_.button : nullptr; }

  void setParamKeys(std::vector<std::shared_ptr<ParamKey>> keys) override;
  using Container::value;
  float value(std::size_t index) const override;
  std::optional<platform::Point> handlePlace(std::size_t index) const override;
  void showValue(std::size_t index, float value, const std::string& text) override;
  void setControlColor(platform::Color color) override;
  void setColors(const std::vector<platform::Color>& colors) override;
  void setInactive(bool inactive) override;
  void draw(const platform::Rect& rect) override;

 protected:
  platform::Rect controlFrame() const override;
  /// The pad has been touched, or left.
  virtual void padTouched(bool) {}
  /// The user has turned the hold switch.
  virtual void holdSwitched() {}
  /// Turns the on/off state as the user's change; does nothing without a key for it.
  void switchOn(bool on);

 private:
  struct Switch {
    explicit Switch(std::string title) : button({std::move(title)}) {}
    bool isUsed() const { return !indices.empty(); }
    bool drives(std::size_t index) const;

    OnOffButton button;
    /// The places of its keys.
    std::vector<std::size_t> indices;
  };

  void connect(Switch& part);
  void style();
  void onSwitched(toolkit::Control& sender);
  void onSwitchHeld(toolkit::Control& sender);
  void onSwitchLetGo(toolkit::Control& sender);
  Switch& switchOf(const toolkit::Control& sender) { return &sender == &on_.button ? on_ : hold_; }
  void tellSwitch(Hold hold, const Switch& part);
  /// What the switches take of `frame`; empty without any, or without room for them.
  platform::Rect switchFrame(const platform::Rect& frame) const;
  int switchCount() const { return (on_.isUsed() ? 1 : 0) + (hold_.isUsed() ? 1 : 0); }

  XYControl pad_;
  Switch on_{"ON"};
  Switch hold_{"HOLD"};
};

/// The pad of an effect that stops time: it is on while the pad is touched, and stays on while the
/// hold switch is.
class TimeStopXYContainer : public XYControlContainer {
 protected:
  void padTouched(bool touched) override;
  void holdSwitched() override;

 private:
  bool isHolding() { return holdSwitch() && holdSwitch()->isOn(); }

  bool touched_ = false;
  /// It was the pad that switched it on.
  bool startedByTouch_ = false;
};

}  // namespace kestroui
