#pragma once

#include <string_view>
#include <utility>
#include <vector>

#include "KestroUI/ShapeControl.h"

namespace kestroui {

/// Base of the views of a filter's response: a curve over pitch from 20 Hz to 20 kHz. Whoever
/// computes the response gives it as magnitudes at `frequencies`; until somebody does, the kind
/// draws the response of a plain filter of its own.
class ResponseView : public ShapeControl {
 public:
  ResponseView();

  /// Where the response is wanted, in hertz, evenly spread in pitch from 20 Hz to 20 kHz.
  const std::vector<double>& frequencies() const { return frequencies_; }
  /// In decibels, one for each of `frequencies`. Empty is nobody's; any other number of them shows
  /// no curve.
  const std::vector<double>& filterMagnitudes() const { return magnitudes_; }
  void setFilterMagnitudes(std::vector<double> decibels);

 protected:
  /// The response in decibels that is drawn without magnitudes.
  virtual double plainMagnitude(double hertz) const = 0;
  /// The lowest and the highest level that the plot shows, in decibels.
  virtual std::pair<double, double> levels() const { return {-36, 30}; }
  /// The range of the resonance's value where it is one of levels, so that its handle stands on the
  /// curve.
  std::pair<double, double> levelsOf(std::size_t resonance) const;
  void paintShape(platform::Canvas& canvas, const platform::Rect& plot) override;

 private:
  void paintLabels(platform::Canvas& canvas, const platform::Rect& plot) const;

  std::vector<double> frequencies_;
  std::vector<double> magnitudes_;
};

/// Responses in decibels of plain second-order filters, for a frequency as a multiple of the cutoff.
namespace PlainFilter {

/// From a share of the resonance's range to a quality of 0.5 to 12.
double quality(double share);
double lowPass(double ratio, double quality);
double highPass(double ratio, double quality);
double bandPass(double ratio, double quality);
double notch(double ratio, double quality);
/// `gain` in decibels, as for the shelves.
double peak(double ratio, double gain);
double lowShelf(double ratio, double gain);

}  // namespace PlainFilter

/// The response of a filter as a curve with one handle: sideways its frequency, upwards its
/// resonance. Value 0 is the frequency's place in pitch between 20 Hz and 20 kHz, value 1 the
/// resonance (or gain) in the parameter's own unit, -20 to 40 at first.
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
  float resonance() const { return value(1); }

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

/// The response of a low-pass and a high-pass filter in a row, with a handle for each: sideways its
/// frequency, upwards its resonance. A filter's gain is a handle at the edge that it lets pass.
class DoubleFilterView : public ResponseView {
 public:
  /// The order of its values. Frequencies are places in pitch between 20 Hz and 20 kHz, all others
  /// in the parameters' own units; the gains may be missing.
  enum Index : std::size_t {
    lowPassFrequency,
    lowPassResonance,
    hiPassFrequency,
    hiPassResonance,
    lowPassGain,
    hiPassGain,
  };

  DoubleFilterView();

 protected:
  std::vector<Handle> handles() const override;
  double plainMagnitude(double hertz) const override;
  std::pair<double, double> levels() const override { return levelsOf(lowPassResonance); }
  void paintHandle(platform::Canvas& canvas, const Handle& handle,
                   Plot::HandleState state) override;
};

}  // namespace kestroui
