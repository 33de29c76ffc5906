#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include "KestroUI/DragControl.h"
#include "KestroUI/Icons.h"
#include "platform/Path.h"

namespace kestroui {

/// A round knob: its arc of 270 degrees fills from the minimum, or from `origin`, to the value.
/// While modulated, a thin outer arc runs from the value to the live one.
class Knob : public DragControl {
 public:
  Knob() = default;

  double bestHeight(const platform::Size& available) const override {
    return std::min(available.height, available.width * heightShare);
  }
  void paint(platform::Canvas& canvas) override;

 protected:
  /// What is drawn on the body, inside of the pointer's way.
  virtual void paintCentre(platform::Canvas&, const platform::Rect& /*body*/) {}
  /// Where the pointer starts, in parts of the body's radius.
  virtual double pointerStart() const { return 0.42; }

 private:
  // Of its width: the arc is open at the bottom.
  static constexpr double heightShare = 0.92;

  void paintModulation(platform::Canvas& canvas, platform::Point centre, double radius,
                       double lineWidth);

  platform::Path path_;
};

/// A knob that shows the waveform that its value stands for.
class WaveformKnob : public Knob {
 public:
  WaveformKnob() = default;

  /// The names of the values from the minimum up. A name that is no waveform's is shown as text;
  /// with no names the range runs through the basic waveforms.
  void setValueNames(const std::vector<std::string>& names);

 protected:
  void paintCentre(platform::Canvas& canvas, const platform::Rect& body) override;
  double pointerStart() const override { return 0.74; }

 private:
  std::vector<std::string> names_;
};

}  // namespace kestroui
