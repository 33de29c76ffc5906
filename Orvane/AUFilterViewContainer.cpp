#include "Orvane/AUFilterViewContainer.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>
#include <utility>

#include "Orvane/DSPParameters.h"
#include "platform/FilterUnits.h"

namespace orvane {

using Type = kestroui::FilterView::Type;
namespace FilterUnits = platform::FilterUnits;

namespace {

// A key that names a filter names its type.
constexpr std::array<std::pair<std::string_view, Type>, 8> typeWords{{
    {"HighPass", Type::hiPass},
    {"HiPass", Type::hiPass},
    {"BandPass", Type::bandPass},
    {"Notch", Type::notch},
    {"Peak", Type::peak},
    {"LowShelf", Type::lowShelf},
    {"HighShelf", Type::hiShelf},
    {"HiShelf", Type::hiShelf},
}};

}  // namespace

void AUFilterViewContainer::setParamKeys(std::vector<std::shared_ptr<kestroui::ParamKey>> keys) {
  FilterViewContainer::setParamKeys(std::move(keys));
  if (!key()) return;
  for (const auto& [word, type] : typeWords)
    if (key()->key().find(word) != std::string::npos) filterView().setType(type);
}

void AUFilterViewContainer::showValue(std::size_t index, float value, const std::string& text) {
  const float frequency = filterView().frequency(), resonance = filterView().resonance();
  FilterViewContainer::showValue(index, value, text);
  const bool moved = filterView().frequency() != frequency || filterView().resonance() != resonance;
  // While it is modulated the next frame shows the live values anyway.
  if (filterView().isModulated()) return;
  if (moved || filterView().filterMagnitudes().empty()) updateViewData();
}

void AUFilterViewContainer::updateViewData() {
  if (paramKeys().size() < 2) return;
  updateFilterViewFrequencyAndMagnitudes(filterView(),
                                         DSPParameters::parameterKey(paramKeys()[0]->key()),
                                         DSPParameters::parameterKey(paramKeys()[1]->key()));
}

void AUFilterViewContainer::updateFilterViewFrequencyAndMagnitudes(
    kestroui::FilterView& view, const std::string& frequencyKey, const std::string& resonanceKey) {
  if (const auto* unit = audioUnit.get())
    view.setFilterMagnitudes(unit->magnitudesForFrequencies(view.frequencies(), view.typeName(),
                                                            frequencyKey, resonanceKey));
}

void AUFilterViewContainer::updateModulation() {
  // The live values die with it.
  if (!audioUnit) watchNothing();
  FilterViewContainer::updateModulation();
  const bool wasModulated = filterView().isModulated();
  filterView().setModulated(
      allowModulation &&
      std::any_of(isModulating.begin(), isModulating.end(), [](const std::atomic<bool>* flag) {
        return flag && flag->load(std::memory_order_relaxed);
      }));
  const bool ended = wasModulated && !filterView().isModulated();
  // The live values may stay for ever what they were last.
  if (ended) updateViewData();
  if (!allowModulation || watchedValues.size() < 2) return;
  const float freq = watchedValues[0]->load(std::memory_order_relaxed);
  const float res = watchedValues[1]->load(std::memory_order_relaxed);
  if (!std::isfinite(freq) || !std::isfinite(res)) return;
  const bool unchanged = freq == previousFreq && res == previousRes;
  previousFreq = freq;
  previousRes = res;
  if (ended || (!filterView().isModulated() && unchanged)) return;
  if (const auto* unit = audioUnit.get())
    filterView().setFilterMagnitudes(
        unit->magnitudesForFrequencies(filterView().frequencies(), filterView().typeName(),
                                       liveHertz(*unit, freq), liveDecibels(*unit, res)));
}

const platform::AUParameter* AUFilterViewContainer::parameterAt(const platform::AudioUnit& unit,
                                                                std::size_t index) const {
  return index < paramKeys().size()
             ? unit.parameter(DSPParameters::parameterKey(paramKeys()[index]->key()))
             : nullptr;
}

float AUFilterViewContainer::liveHertz(const platform::AudioUnit& unit, float value) const {
  const auto* parameter = parameterAt(unit, 0);
  return parameter ? static_cast<float>(FilterUnits::hertz(*parameter, value)) : value;
}

float AUFilterViewContainer::liveDecibels(const platform::AudioUnit& unit, float value) const {
  const auto* parameter = parameterAt(unit, 1);
  return parameter ? static_cast<float>(FilterUnits::decibels(*parameter, value)) : value;
}

}  // namespace orvane
