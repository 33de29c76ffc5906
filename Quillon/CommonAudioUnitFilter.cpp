// The responses that filter views show.

#include <cmath>
#include <numbers>

#include "Quillon/CommonAudioUnit.h"
#include "Quillon/FilterResponse.h"
#include "platform/FilterUnits.h"

namespace quillon {

namespace {

namespace FilterUnits = platform::FilterUnits;

double hertzOf(const Parameter& parameter) {
  return FilterUnits::hertz(parameter, parameter.value());
}

double decibelsOf(const Parameter& parameter) {
  return FilterUnits::decibels(parameter, parameter.value());
}

FilterType typeOf(const Parameter* parameter, FilterType otherwise) {
  if (!parameter) return otherwise;
  const auto index = std::lround(parameter->value() - parameter->minValue());
  const auto& names = parameter->valueStrings();
  if (index >= 0 && index < static_cast<long>(names.size()))
    if (const auto named = filterTypeNamed(names[static_cast<std::size_t>(index)])) return *named;
  const bool counts = index >= 0 && index <= static_cast<long>(FilterType::hiShelf);
  return counts ? static_cast<FilterType>(index) : otherwise;
}

}  // namespace

std::vector<double> CommonAudioUnit::magnitudesForFrequencies(
    const std::vector<double>& frequencies, std::string_view filterType,
    std::string_view frequencyParameter, std::string_view resonanceParameter) const {
  const Parameter* frequency = parameter(frequencyParameter);
  const Parameter* resonance = parameter(resonanceParameter);
  if (!frequency || !resonance) return {};
  return magnitudesForFrequencies(frequencies, filterType, static_cast<float>(hertzOf(*frequency)),
                                  static_cast<float>(decibelsOf(*resonance)));
}

std::vector<double> CommonAudioUnit::magnitudesForFrequencies(
    const std::vector<double>& frequencies, std::string_view filterType, float frequencyValue,
    float resonanceValue) const {
  const auto type = filterTypeNamed(filterType);
  if (!type || !std::isfinite(frequencyValue) || !std::isfinite(resonanceValue)) return {};
  return FilterResponse::withResonance(*type, frequencyValue, resonanceValue)
      .decibelsAt(frequencies);
}

std::vector<double> CommonAudioUnit::magnitudesForFrequencies(
    const std::vector<double>& frequencies, const platform::FilterPairKeys& keys) const {
  struct FilterKeys {
    FilterType type;
    std::string_view frequency, resonance, on, typeKey, gain;
  };
  const FilterKeys filters[] = {
      {FilterType::lowPass, keys.lowPassFrequency, keys.lowPassResonance, keys.isLowPassOn,
       keys.lowPassType, keys.lowPassGain},
      {FilterType::hiPass, keys.hiPassFrequency, keys.hiPassResonance, keys.isHighPassOn,
       keys.hiPassType, keys.hiPassGain},
  };
  std::vector<double> sum;
  for (const FilterKeys& filter : filters) {
    const Parameter* frequency = parameter(filter.frequency);
    if (!frequency) continue;
    sum.resize(frequencies.size());
    const Parameter* on = parameter(filter.on);
    if (on && on->value() < 0.5f) continue;
    const Parameter* resonance = parameter(filter.resonance);
    const Parameter* gain = parameter(filter.gain);
    const double quality =
        resonance ? std::pow(10, decibelsOf(*resonance) / 20) : std::numbers::sqrt2 / 2;
    const FilterResponse response(typeOf(parameter(filter.typeKey), filter.type),
                                  hertzOf(*frequency), quality, gain ? decibelsOf(*gain) : 0);
    for (std::size_t i = 0; i < sum.size(); ++i) sum[i] += response.decibelsAt(frequencies[i]);
  }
  return sum;
}

}  // namespace quillon
