#pragma once

#include <functional>
#include <optional>
#include <string_view>
#include <vector>

#include "KestroUI/Theme.h"
#include "platform/Control.h"
#include "platform/Path.h"

namespace kestroui {

/// The response of a filter as a curve with one handle: sideways its frequency, upwards its
/// resonance. Whoever computes the response gives it as magnitudes at `frequencies`. A drag sends
/// editingDidBegin, valueChanged and editingDidEnd. User-interface thread only.
class FilterView : public platform::Control {
 public:
  enum class Type { lowPass, hiPass, bandPass, notch, peak, lowShelf, hiShelf };

  FilterView();

  Type type() const { return type_; }
  void setType(Type type);
  /// The type as the audio unit knows it: "lowPass", "hiShelf".
  std::string_view typeName() const;

  /// Where the response is wanted, in hertz, evenly spread in pitch from 20 Hz to 20 kHz.
  const std::vector<double>& frequencies() const { return frequencies_; }
  /// In decibels, one for each of `frequencies`; any other number of them shows no curve.
  const std::vector<double>& filterMagnitudes() const { return magnitudes_; }
  void setFilterMagnitudes(std::vector<double> decibels);

  /// From 20 to 20000 Hz. Setting shows it and sends nothing.
  float frequency() const { return frequency_; }
  void setFrequency(float hertz);
  /// The frequency's place in pitch between 20 Hz and 20 kHz, from 0 to 1.
  float frequencyPosition() const;
  void setFrequencyPosition(float position);
  /// In the parameter's own unit.
  float resonance() const { return resonance_; }
  void setResonance(float resonance);
  float minimumResonance() const { return minimumResonance_; }
  float maximumResonance() const { return maximumResonance_; }
  /// -20 to 40 at first.
  void setResonanceRange(float minimum, float maximum);

  /// Live values are shown instead of the parameters' own.
  bool isModulated() const { return modulated_; }
  void setModulated(bool modulated);
  platform::Color accentColor() const { return accent_; }
  void setAccentColor(platform::Color color);
  bool isInactive() const { return inactive_; }
  void setInactive(bool inactive);

  void touchBegan(const platform::Touch& touch) override;
  void touchMoved(const platform::Touch& touch) override;
  void touchEnded(const platform::Touch& touch) override;
  void touchCancelled(const platform::Touch& touch) override;
  void paint(platform::Canvas& canvas) override;

  /// Called at the second tap of a double tap.
  std::function<void()> doubleTapped;

 private:
  platform::Rect plot() const { return bounds().inset(4, 4); }
  platform::Point handle() const;
  void paintGrid(platform::Canvas& canvas) const;
  void paintCurve(platform::Canvas& canvas, platform::Color color);
  void stopDrag();

  Type type_ = Type::lowPass;
  std::vector<double> frequencies_;
  std::vector<double> magnitudes_;
  float frequency_ = 1000;
  float resonance_ = 0;
  float minimumResonance_ = -20;
  float maximumResonance_ = 40;
  bool modulated_ = false;
  bool inactive_ = false;
  platform::Color accent_ = Theme::grey;
  std::optional<int> touchId_;
  bool dragging_ = false;
  platform::Path curve_;
  platform::Path area_;
};

}  // namespace kestroui
