#pragma once

#include <string_view>

#include "KestroUI/ResponseView.h"

namespace kestroui {

/// The response of a filter as a curve with one handle: sideways its frequency, upwards its
/// resonance. Value 0 is the frequency's place in pitch between 20 Hz and 20 kHz, value 1 the
/// resonance (or gain) in the parameter's own unit.
class FilterView : public ResponseView {
 public:
  enum class Type { lowPass, hiPass, bandPass, notch, peak, lowShelf, hiShelf };

  FilterView();

  Type type() const { return type_; }
  void setType(Type type);
  /// The type as the audio unit knows it: "lowPass", "hiShelf".
  std::string_view typeName() const;

  /// From 20 to 20000 Hz. Setting shows it and sends nothing.
  float frequency() const;
  void setFrequency(float hertz);
  float frequencyPosition() const { return value(0); }
  void setFrequencyPosition(float position) { setValue(0, position); }
  float resonance() const { return value(1); }
  void setResonance(float resonance) { setValue(1, resonance); }
  float minimumResonance() const { return minimum(1); }
  float maximumResonance() const { return maximum(1); }
  /// -20 to 40 at first.
  void setResonanceRange(float minimum, float maximum) { setRange(1, minimum, maximum); }

  /// The curve is that of live values instead of the parameters' own.
  bool isModulated() const { return modulated_; }
  void setModulated(bool modulated) { modulated_ = modulated; }

 protected:
  std::vector<Handle> handles() const override;
  double plainMagnitude(double hertz) const override;
  std::pair<double, double> levels() const override { return levelsOf(1); }

 private:
  Type type_ = Type::lowPass;
  bool modulated_ = false;
};

}  // namespace kestroui
