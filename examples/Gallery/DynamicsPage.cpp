// What a processor does to the level: compressors and waveshapers.

#include <string>

#include "examples/Gallery/GalleryPage.h"

namespace gallery {

using kestroui::ControlType;
using platform::AudioUnitParameterUnit;

namespace {

quillon::ParameterDescription decibels(std::string key, std::string title, float minimum,
                                       float maximum, float value) {
  return {.key = std::move(key),
          .displayName = std::move(title),
          .minValue = minimum,
          .maxValue = maximum,
          .defaultValue = value,
          .unit = AudioUnitParameterUnit::decibels};
}

quillon::ParameterDescription ratio(std::string key, float value) {
  return {.key = std::move(key),
          .displayName = "Ratio",
          .minValue = 1,
          .maxValue = 20,
          .defaultValue = value,
          .unit = AudioUnitParameterUnit::ratio};
}

quillon::ParameterDescription frequency(std::string key, std::string title, float value) {
  return {.key = std::move(key),
          .displayName = std::move(title),
          .minValue = 20,
          .maxValue = 20000,
          .defaultValue = value,
          .unit = AudioUnitParameterUnit::hertz};
}

quillon::ParameterDescription milliseconds(std::string key, std::string title, float maximum,
                                           float value) {
  return {.key = std::move(key),
          .displayName = std::move(title),
          .maxValue = maximum,
          .defaultValue = value,
          .unit = AudioUnitParameterUnit::milliseconds};
}

/// A meter: what the processor measures is the live value.
quillon::ParameterDescription reduction(std::string key, float value) {
  quillon::ParameterDescription result = decibels(std::move(key), "Reduction", -24, 0, value);
  result.publishesLive = true;
  return result;
}

}  // namespace

GalleryPage dynamicsPage() {
  GalleryPage page;
  page.parameters = {
      decibels("threshold", "Threshold", -60, 0, -28),
      ratio("ratio", 4),
      decibels("knee", "Knee", 0, 24, 10),
      milliseconds("compressorAttack", "Attack", 200, 12),
      milliseconds("compressorRelease", "Release", 1000, 180),
      decibels("makeUp", "Make-up", 0, 24, 4),
      reduction("reduction", -5),
      decibels("thresholdLow", "Threshold 1", -60, 0, -40),
      ratio("ratioLow", 2),
      reduction("reductionLow", -3),
      decibels("thresholdHigh", "Threshold 2", -60, 0, -16),
      ratio("ratioHigh", 10),
      reduction("reductionHigh", -6),
      decibels("bandThreshold", "Threshold", -60, 0, -30),
      ratio("bandRatio", 3),
      frequency("bandLowFrequency", "From", 250),
      frequency("bandHighFrequency", "To", 4000),
      reduction("bandReduction", -8),
      {.key = "bands",
       .displayName = "Bands",
       .defaultValue = 1,
       .unit = AudioUnitParameterUnit::boolean},
      decibels("LowThreshold", "Low", -60, 0, -32),
      ratio("LowRatio", 3),
      reduction("LowReduction", -6),
      decibels("MidThreshold", "Mid", -60, 0, -24),
      ratio("MidRatio", 2),
      reduction("MidReduction", -3),
      decibels("HighThreshold", "High", -60, 0, -38),
      ratio("HighRatio", 6),
      reduction("HighReduction", -9),
      frequency("LowMidFrequency", "Low to mid", 180),
      frequency("MidHighFrequency", "Mid to high", 3200),
      share("drive", "Drive", 0.35f),
      {.key = "shape",
       .displayName = "Shape",
       .maxValue = 4,
       .unit = AudioUnitParameterUnit::indexed,
       .valueStrings = {"Soft", "Hard", "Fold", "Crush", "Tube"}},
      share("bias", "Bias", 0.5f),
      share("mix", "Mix", 1),
  };
  const float table[] = {0.08f, 0.1f, 0.22f, 0.34f, 0.5f, 0.78f, 0.7f, 0.9f, 0.86f};
  std::vector<std::string> points;
  for (std::size_t i = 0; i < std::size(table); ++i) {
    points.push_back("table" + std::to_string(i + 1));
    page.parameters.push_back(share(points.back(), "Point " + std::to_string(i + 1), table[i]));
    page.parameters.back().publishesLive = false;
  }
  for (const quillon::ParameterDescription& parameter : page.parameters)
    page.keys.push_back(key(parameter.key, parameter.displayName, ControlType::none));
  const auto show = [&](const std::shared_ptr<kestroui::ParamKey>& shown) {
    for (auto& existing : page.keys)
      if (existing->key() == shown->key()) existing = shown;
  };
  show(key("threshold", "Compressor", ControlType::compressor,
           {"ratio", "knee", "compressorAttack", "compressorRelease", "makeUp", "reduction"}));
  show(key("thresholdLow", "Two stages", ControlType::doubleCompressor,
           {"ratioLow", "reductionLow", "thresholdHigh", "ratioHigh", "reductionHigh"}));
  show(key("bandThreshold", "Band", ControlType::bandCompressor,
           {"bandRatio", "bandLowFrequency", "bandHighFrequency", "bandReduction"}));
  // Its band parameters are found by their keys.
  show(key("bands", "Three bands", ControlType::threeBandCompressor));
  show(key("drive", "Drive", ControlType::waveshaper, {"shape", "bias", "mix"}));
  show(key(points.front(), "Table", ControlType::tableWaveshaper,
           {points.begin() + 1, points.end()}));

  const auto dynamics =
      section("COMPRESSORS", Colors::teal,
              {single("threshold"), single("thresholdLow"), single("bandThreshold")});
  const auto bands = section("THREE BANDS", Colors::sky, {single("bands")});
  const auto shapers =
      section("WAVESHAPERS", Colors::coral, {single("drive"), single(points.front())});
  page.page = std::make_shared<orvane::Page>(
      std::vector<orvane::UISection>{
          {dynamics, 21, 0, 1.2, 0}, {bands, 10, 1, 1, 0}, {shapers, 11, 1, 1, 0}},
      "DYNAMICS");
  return page;
}

}  // namespace gallery
