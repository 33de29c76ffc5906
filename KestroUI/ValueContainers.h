#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "KestroUI/Container.h"
#include "KestroUI/DragControl.h"
#include "KestroUI/Indicators.h"
#include "KestroUI/Knob.h"
#include "KestroUI/Slider.h"
#include "KestroUI/Stepper.h"

// The kinds that show one value with its title.

namespace kestroui {

/// Base of the kinds whose control is dragged to a position. The parameter's range says where the
/// control's fill starts, and, when its values have names, in how many steps it moves.
class PositionContainer : public Container {
 public:
  void setValueRange(float minimum, float maximum) override;
  void setStringValues(const std::vector<std::string>& values) override;

 protected:
  /// Called once by the kind's constructor.
  void setDragged(DragControl& control);

 private:
  void configure();

  DragControl* dragged_ = nullptr;
  float minimum_ = 0;
  float maximum_ = 1;
  bool isRangeKnown_ = false;
  std::size_t names_ = 0;
};

/// A knob with its title.
class KnobContainer : public PositionContainer {
 public:
  KnobContainer() { setDragged(knob_); }

  Knob& knob() { return knob_; }
  const Knob& knob() const { return knob_; }

 private:
  Knob knob_;
};

/// A slider with its title.
class SliderContainer : public PositionContainer {
 public:
  SliderContainer() { setDragged(slider_); }

  Slider& slider() { return slider_; }

 private:
  Slider slider_;
};

/// A knob that shows its waveform, with its title.
class WaveformKnobContainer : public PositionContainer {
 public:
  WaveformKnobContainer() { setDragged(knob_); }

  WaveformKnob& knob() { return knob_; }

  void setStringValues(const std::vector<std::string>& values) override;

 private:
  WaveformKnob knob_;
};

/// A stepped value between minus and plus, with its title. The value is raw.
class StepperContainer : public Container {
 public:
  StepperContainer() { setControl(stepper_); }

  ValueForm valueForm(std::size_t) const override { return ValueForm::raw; }
  void setValueRange(float minimum, float maximum) override;
  void setStringValues(const std::vector<std::string>& values) override;
  void showValue(std::size_t index, float value, const std::string& text) override;

 private:
  Stepper stepper_;
};

/// A text: the value's, or the title where the value has none.
class SimpleLabelContainer : public Container {
 public:
  SimpleLabelContainer();

  void setTitle(const std::string& title) override;
  void showValue(std::size_t index, float value, const std::string& text) override;

 private:
  SimpleLabel label_;
};

/// A light with its title; it follows the live value where there is one.
class LEDViewContainer : public Container {
 public:
  LEDViewContainer();

  void updateModulation() override;

 private:
  LED led_;
};

}  // namespace kestroui
