#pragma once

#include <complex>
#include <span>
#include <vector>

namespace halden {

/// How loud a sound is at each pitch, as a display shows it: rising at once and falling slowly. For
/// one thread.
class Spectrum {
 public:
  /// Samples that one reading takes.
  static constexpr std::size_t length = 4096;
  /// Bands from 20 Hz to 20 kHz, all as wide in pitch.
  static constexpr std::size_t bandCount = 128;
  /// In decibels; a full sine is at 0.
  static constexpr float floor = -84;

  Spectrum();

  const std::vector<float>& levels() const { return levels_; }
  /// Reads the newest samples, oldest first; fewer than `length` count as silence before them. True
  /// when a level has changed.
  bool read(std::span<const float> samples, double sampleRate);
  void clear();

 private:
  void transform();
  /// The level at a place between the bins of the transform, in decibels.
  float levelAt(double bin) const;

  std::vector<float> window_, levels_;
  std::vector<std::complex<float>> twiddles_, bins_;
};

}  // namespace halden
