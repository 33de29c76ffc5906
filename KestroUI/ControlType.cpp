#include "KestroUI/ControlType.h"

#include <array>
#include <cstddef>

namespace kestroui {

namespace {

// In the order of the cases.
constexpr std::array<std::string_view, controlTypeCount> rawValues = {
    "none",           "slider",
    "knob",           "filter",
    "onOff",          "rec",
    "xyControl",      "timeStopXY",
    "radioButtons",   "stepSequencer",
    "curveSequencer", "stepper",
    "multiple",       "waveformKnob",
    "oscilloscope",   "multiOscilloscope",
    "radioWaveForm",  "dropdownList",
    "adsr",           "sampleView",
    "simpleButton",   "simpleLabel",
    "compressor",     "doubleCompressor",
    "waveshaper",     "tableWaveshaper",
    "doubleFilter",   "granulizer",
    "doubleSlider",   "mutable",
    "phaser",         "zorva",
    "simpleCurve",    "wavetable",
    "bandCompressor", "threeBandCompressor",
    "bitFlagsGroup",  "led",
};

}  // namespace

std::string_view rawValue(ControlType type) {
  const auto index = static_cast<std::size_t>(type);
  return index < rawValues.size() ? rawValues[index] : std::string_view();
}

std::optional<ControlType> controlTypeFromRawValue(std::string_view text) {
  for (std::size_t i = 0; i < rawValues.size(); ++i)
    if (rawValues[i] == text) return static_cast<ControlType>(i);
  return std::nullopt;
}

}  // namespace kestroui
