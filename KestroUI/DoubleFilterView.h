#pragma once

#include "KestroUI/ResponseView.h"

namespace kestroui {

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
