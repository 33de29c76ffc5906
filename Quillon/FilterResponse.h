#pragma once

#include <optional>
#include <string_view>
#include <vector>

namespace quillon {

enum class FilterType { lowPass, hiPass, bandPass, notch, peak, lowShelf, hiShelf };

/// The case of this name; none for any other text.
std::optional<FilterType> filterTypeNamed(std::string_view name);

/// The magnitude response of an analogue filter of second order, which a well-made digital one
/// follows up to half the sample rate: what displays show. The transfer functions are the analogue
/// prototypes of Robert Bristow-Johnson's "Cookbook formulae for audio equalizer biquad filter
/// coefficients".
class FilterResponse {
 public:
  /// `frequency` in hertz, above 0. `quality` is Q: the gain of a low or high pass at its
  /// frequency, the frequency over the bandwidth of the others. `gain` in decibels: of a peak at
  /// its frequency, of a shelf on its side; it raises or lowers any other type as a whole.
  FilterResponse(FilterType type, double frequency, double quality, double gain = 0);
  /// From one parameter for both: the gain of a peak or shelf of a usual width, the resonance
  /// 20 log Q of any other type.
  static FilterResponse withResonance(FilterType type, double frequency, double decibels);

  /// In decibels; never below -160.
  double decibelsAt(double hertz) const;
  std::vector<double> decibelsAt(const std::vector<double>& hertz) const;

 private:
  /// (b2 s^2 + b1 s + b0) / (a2 s^2 + a1 s + a0), s in parts of the frequency.
  double frequency_;
  double b2_ = 0, b1_ = 0, b0_ = 0;
  double a2_ = 1, a1_ = 1, a0_ = 1;
  double level_ = 0;
};

}  // namespace quillon
