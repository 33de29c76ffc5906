// The kinds whose values make a curve.

#include <string>

#include "examples/Gallery/GalleryPage.h"

namespace gallery {

using kestroui::ControlType;
using platform::AudioUnitParameterUnit;

namespace {

quillon::ParameterDescription frequency(std::string key, std::string title, float hertz) {
  return {.key = std::move(key),
          .displayName = std::move(title),
          .minValue = 20,
          .maxValue = 20000,
          .defaultValue = hertz,
          .unit = AudioUnitParameterUnit::hertz,
          .publishesLive = true};
}

quillon::ParameterDescription resonance(std::string key, float decibels) {
  return {.key = std::move(key),
          .displayName = "Resonance",
          .minValue = -20,
          .maxValue = 40,
          .defaultValue = decibels,
          .unit = AudioUnitParameterUnit::decibels};
}

quillon::ParameterDescription time(std::string key, std::string title, float milliseconds) {
  return {.key = std::move(key),
          .displayName = std::move(title),
          .maxValue = 2000,
          .defaultValue = milliseconds,
          .unit = AudioUnitParameterUnit::milliseconds};
}

}  // namespace

GalleryPage shapesPage() {
  GalleryPage page;
  page.parameters = {
      frequency("filter", "Cutoff", 900),
      resonance("filterResonance", 10),
      frequency("bandHigh", "Low pass", 6000),
      resonance("bandHighResonance", 8),
      frequency("bandLow", "High pass", 120),
      resonance("bandLowResonance", 0),
      time("attack", "Attack", 400),
      time("decay", "Decay", 900),
      share("sustain", "Sustain", 0.55f),
      time("release", "Release", 1300),
      share("wavetable", "Position", 0.4f),
      share("rangeLow", "From", 0.25f),
      share("rangeHigh", "To", 0.7f),
      {.key = "mutable",
       .displayName = "Send",
       .minValue = -60,
       .defaultValue = -12,
       .unit = AudioUnitParameterUnit::decibels,
       .publishesLive = true},
      {.key = "muted", .displayName = "Mute", .unit = AudioUnitParameterUnit::boolean},
  };
  const float curve[] = {0.1f, 0.2f, 0.45f, 0.85f, 0.95f};
  std::vector<std::string> others;
  for (std::size_t i = 0; i < std::size(curve); ++i) {
    const std::string name = "curve" + std::to_string(i + 1);
    page.parameters.push_back(share(name, "Point " + std::to_string(i + 1), curve[i]));
    if (i > 0) others.push_back(name);
  }
  // What is moved by the kinds that show it: their names, and no control of their own.
  for (const quillon::ParameterDescription& parameter : page.parameters)
    page.keys.push_back(key(parameter.key, parameter.displayName, ControlType::none));
  const auto show = [&](const std::shared_ptr<kestroui::ParamKey>& shown) {
    for (auto& existing : page.keys)
      if (existing->key() == shown->key()) existing = shown;
  };
  show(key("filter", "Cutoff", ControlType::filter, {"filterResonance"}));
  show(key("bandHigh", "Band", ControlType::doubleFilter,
           {"bandHighResonance", "bandLow", "bandLowResonance"}));
  show(key("attack", "Envelope", ControlType::adsr, {"decay", "sustain", "release"}));
  show(key("curve1", "Velocity", ControlType::simpleCurve, others));
  show(key("wavetable", "Position", ControlType::wavetable));
  show(key("rangeLow", "Range", ControlType::doubleSlider, {"rangeHigh"}));
  show(key("mutable", "Send", ControlType::mutableControl, {"muted"}));

  const auto filters = section("FILTERS", Colors::teal, {single("filter"), single("bandHigh")});
  const auto curves =
      section("ENVELOPE AND CURVE", Colors::sand, {single("attack", 1.5), single("curve1")});
  const auto more =
      section("TABLE AND RANGE", Colors::violet,
              {single("wavetable", 1.4), single("rangeLow", 1.2), single("mutable", 0.8)});
  page.page = std::make_shared<orvane::Page>(
      std::vector<orvane::UISection>{
          {filters, 8, 0, 1, 0}, {curves, 4, 1, 1, 0}, {more, 4, 1, 1, 0}},
      "SHAPES");
  return page;
}

}  // namespace gallery
