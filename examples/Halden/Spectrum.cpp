#include "examples/Halden/Spectrum.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace halden {
namespace {

constexpr double lowest = 20, highest = 20000;
/// Decibels at each reading.
constexpr float fall = 1.5f;

double bandEdge(std::size_t band) {
  return lowest * std::pow(highest / lowest, static_cast<double>(band) / Spectrum::bandCount);
}

}  // namespace

Spectrum::Spectrum()
    : window_(length), levels_(bandCount, floor), twiddles_(length / 2), bins_(length) {
  constexpr double turn = 2 * std::numbers::pi / length;
  for (std::size_t i = 0; i < length; ++i)
    window_[i] = static_cast<float>(0.5 - 0.5 * std::cos(turn * static_cast<double>(i)));
  for (std::size_t i = 0; i < twiddles_.size(); ++i)
    twiddles_[i] = std::polar(1.0f, static_cast<float>(-turn * static_cast<double>(i)));
}

void Spectrum::clear() { std::fill(levels_.begin(), levels_.end(), floor); }

bool Spectrum::read(std::span<const float> samples, double sampleRate) {
  const bool sounds =
      std::any_of(samples.begin(), samples.end(), [](float sample) { return sample != 0; });
  const bool rests =
      std::all_of(levels_.begin(), levels_.end(), [](float level) { return level == floor; });
  if (!sounds && rests) return false;

  const std::size_t count = std::min(samples.size(), length);
  const std::size_t missing = length - count;
  for (std::size_t i = 0; i < length; ++i)
    bins_[i] = i < missing ? 0.0f : window_[i] * samples[samples.size() - count + i - missing];
  transform();

  bool changed = false;
  const double binsPerHertz = length / sampleRate;
  for (std::size_t band = 0; band < bandCount; ++band) {
    const double from = bandEdge(band) * binsPerHertz, to = bandEdge(band + 1) * binsPerHertz;
    float level = levelAt((from + to) / 2);
    const auto end = std::min(static_cast<std::size_t>(to), length / 2 - 1);
    for (auto bin = static_cast<std::size_t>(std::ceil(from)); bin <= end; ++bin)
      level = std::max(level, levelAt(static_cast<double>(bin)));
    level = std::max({level, levels_[band] - fall, floor});
    changed = changed || level != levels_[band];
    levels_[band] = level;
  }
  return changed;
}

float Spectrum::levelAt(double bin) const {
  const auto below = static_cast<std::size_t>(bin);
  if (below + 1 >= length / 2) return floor;
  const auto level = [this](std::size_t index) {
    // The window halves a sine, and half of it is at the frequencies below zero.
    const float power = std::norm(bins_[index]) * (16.0f / (float{length} * float{length}));
    return std::isfinite(power) ? 10 * std::log10(std::max(power, 1e-12f)) : floor;
  };
  const float share = static_cast<float>(bin - static_cast<double>(below));
  return level(below) + share * (level(below + 1) - level(below));
}

void Spectrum::transform() {
  for (std::size_t i = 1, reversed = 0; i < length; ++i) {
    std::size_t bit = length / 2;
    for (; reversed & bit; bit /= 2) reversed ^= bit;
    reversed ^= bit;
    if (i < reversed) std::swap(bins_[i], bins_[reversed]);
  }
  for (std::size_t size = 2; size <= length; size *= 2) {
    const std::size_t half = size / 2, stride = length / size;
    for (std::size_t begin = 0; begin < length; begin += size) {
      for (std::size_t k = 0; k < half; ++k) {
        // Written out: the library's product looks for infinities first.
        const std::complex<float> w = twiddles_[k * stride], v = bins_[begin + k + half];
        const std::complex<float> turned(v.real() * w.real() - v.imag() * w.imag(),
                                         v.real() * w.imag() + v.imag() * w.real());
        bins_[begin + k + half] = bins_[begin + k] - turned;
        bins_[begin + k] += turned;
      }
    }
  }
}

}  // namespace halden
