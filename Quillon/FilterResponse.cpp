#include "Quillon/FilterResponse.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <numbers>

namespace quillon {

namespace {

constexpr std::array<std::string_view, 7> typeNames = {"lowPass", "hiPass",   "bandPass", "notch",
                                                       "peak",    "lowShelf", "hiShelf"};
// -160 dB, squared.
constexpr double silence = 1e-16;
constexpr double peakQuality = 1;
constexpr double shelfQuality = std::numbers::sqrt2 / 2;

}  // namespace

std::optional<FilterType> filterTypeNamed(std::string_view name) {
  for (std::size_t i = 0; i < typeNames.size(); ++i)
    if (typeNames[i] == name) return static_cast<FilterType>(i);
  return std::nullopt;
}

FilterResponse::FilterResponse(FilterType type, double frequency, double quality, double gain)
    : frequency_(std::max(frequency, 1e-6)) {
  const double width = 1 / std::max(quality, 1e-3);
  // The square root of the gain as a factor.
  const double a = std::pow(10, gain / 40);
  const double slope = std::sqrt(a) * width;
  a1_ = width;
  switch (type) {
    case FilterType::lowPass:
      b0_ = 1;
      break;
    case FilterType::hiPass:
      b2_ = 1;
      break;
    case FilterType::bandPass:
      b1_ = width;
      break;
    case FilterType::notch:
      b2_ = b0_ = 1;
      break;
    case FilterType::peak:
      b2_ = b0_ = 1;
      b1_ = width * a;
      a1_ = width / a;
      return;
    case FilterType::lowShelf:
      b2_ = a;
      b1_ = a * slope;
      b0_ = a * a;
      a2_ = a;
      a1_ = slope;
      return;
    case FilterType::hiShelf:
      b2_ = a * a;
      b1_ = a * slope;
      b0_ = a;
      a1_ = slope;
      a0_ = a;
      return;
  }
  level_ = gain;
}

FilterResponse FilterResponse::withResonance(FilterType type, double frequency, double decibels) {
  switch (type) {
    case FilterType::peak:
      return {type, frequency, peakQuality, decibels};
    case FilterType::lowShelf:
    case FilterType::hiShelf:
      return {type, frequency, shelfQuality, decibels};
    default:
      return {type, frequency, std::pow(10, decibels / 20)};
  }
}

double FilterResponse::decibelsAt(double hertz) const {
  const double w = hertz / frequency_, w2 = w * w;
  const auto squared = [&](double c2, double c1, double c0) {
    const double real = c0 - c2 * w2;
    return real * real + c1 * c1 * w2;
  };
  const double ratio = squared(b2_, b1_, b0_) / std::max(squared(a2_, a1_, a0_), silence);
  return std::max(-160.0, 10 * std::log10(std::max(ratio, silence)) + level_);
}

std::vector<double> FilterResponse::decibelsAt(const std::vector<double>& hertz) const {
  std::vector<double> levels(hertz.size());
  for (std::size_t i = 0; i < hertz.size(); ++i) levels[i] = decibelsAt(hertz[i]);
  return levels;
}

}  // namespace quillon
