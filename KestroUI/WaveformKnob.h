#pragma once

#include <string>
#include <vector>

#include "KestroUI/Icons.h"
#include "KestroUI/Knob.h"

namespace kestroui {

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
