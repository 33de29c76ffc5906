#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace kestroui {

/// The kinds of control, in an order that never changes. The raw values are in ControlType.cpp.
enum class ControlType : std::uint8_t {
  none,
  slider,
  knob,
  filter,
  onOff,
  rec,
  xyControl,
  timeStopXY,
  radioButtons,
  stepSequencer,
  curveSequencer,
  stepper,
  multiple,
  waveformKnob,
  oscilloscope,
  multiOscilloscope,
  radioWaveForm,
  dropdownList,
  adsr,
  sampleView,
  simpleButton,
  simpleLabel,
  compressor,
  doubleCompressor,
  waveshaper,
  tableWaveshaper,
  doubleFilter,
  granulizer,
  doubleSlider,
  mutableControl,
  phaser,
  zorva,
  simpleCurve,
  wavetable,
  bandCompressor,
  threeBandCompressor,
  bitFlagsGroup,
  led,
};

inline constexpr int controlTypeCount = 38;

/// The name by which descriptions and scripts call a kind: the case's name, but "mutable" for
/// mutableControl. "" for a value that is no case.
std::string_view rawValue(ControlType type);
/// None for a text that names no kind.
std::optional<ControlType> controlTypeFromRawValue(std::string_view text);

}  // namespace kestroui
