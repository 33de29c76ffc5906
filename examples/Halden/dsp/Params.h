#pragma once

#include <array>
#include <cstddef>
#include <span>

namespace halden {

/// Every value that the sound depends on, in the order of the plug-in's parameters. The order is
/// also the order of the addresses that hosts store: append, never insert.
enum class Param : std::size_t {
  osc1Wave,
  osc1Octave,
  osc1Fine,
  osc1Width,
  osc1Level,
  osc1Pan,
  osc2On,
  osc2Wave,
  osc2Semi,
  osc2Fine,
  osc2Width,
  osc2Level,
  osc2Pan,
  unisonOn,
  unisonVoices,
  unisonDetune,
  unisonSpread,
  fmAmount,
  fmRatio,
  subLevel,
  noiseLevel,
  velocityLevel,
  velocityCutoff,
  pressureCutoff,
  wheelVibrato,
  bendRange,
  filterOn,
  filterType,
  cutoff,
  resonance,
  filterDrive,
  keytrack,
  filterEnvelope,
  filterAttack,
  filterDecay,
  filterSustain,
  filterRelease,
  ampAttack,
  ampDecay,
  ampSustain,
  ampRelease,
  lfo1On,
  lfo1Wave,
  lfo1Rate,
  lfo1Sync,
  lfo1Division,
  lfo1Phase,
  lfo1Cutoff,
  lfo1Width,
  lfo1Level,
  lfo2On,
  lfo2Wave,
  lfo2Rate,
  lfo2Sync,
  lfo2Beats,
  lfo2Fade,
  lfo2Pitch,
  lfo2Pan,
  driveOn,
  driveAmount,
  driveTone,
  driveMix,
  chorusOn,
  chorusRate,
  chorusDepth,
  chorusMix,
  delayOn,
  delaySync,
  delayTime,
  delayDivision,
  delayFeedback,
  delayTone,
  delayMix,
  reverbOn,
  reverbPredelay,
  reverbDecay,
  reverbTone,
  reverbMix,
  volume,
  voiceMode,
  glide,
  tune,
  panic,
  subMute,
  noiseMute,
  velocity1,
  velocity2,
  velocity3,
  velocity4,
  velocity5,
  driveShape,
  driveBias,
  delayLowCut,
  scopeTime,
  stepsOn,
  stepsDivision,
  stepsCount,
  stepsGlide,
  stepsCutoff,
  stepsPitch,
  step1,
  step2,
  step3,
  step4,
  step5,
  step6,
  step7,
  step8,
  step9,
  step10,
  step11,
  step12,
  step13,
  step14,
  step15,
  step16,
  curveOn,
  curveDivision,
  curveCount,
  curveLevel,
  curveWidth,
  curvePan,
  curve1,
  curve2,
  curve3,
  curve4,
  curve5,
  curve6,
  curve7,
  curve8,
  curve9,
  curve10,
  curve11,
  curve12,
  curve13,
  curve14,
  curve15,
  curve16,
  count
};

inline constexpr std::size_t paramCount = static_cast<std::size_t>(Param::count);

/// One value for each parameter, in the parameter's own unit.
class ParamValues {
 public:
  float& operator[](Param param) { return values_[static_cast<std::size_t>(param)]; }
  float operator[](Param param) const { return values_[static_cast<std::size_t>(param)]; }
  /// As many values as `count`, from `first` on.
  std::span<const float> from(Param first, std::size_t count) const {
    return {values_.data() + static_cast<std::size_t>(first), count};
  }
  float& at(std::size_t index) { return values_[index]; }
  float at(std::size_t index) const { return values_[index]; }

  bool isOn(Param param) const { return (*this)[param] >= 0.5f; }
  /// The value of a parameter that counts or chooses.
  int index(Param param) const {
    const float value = (*this)[param];
    if (!(value > -1e6f && value < 1e6f)) return 0;
    return static_cast<int>(value < 0 ? value - 0.5f : value + 0.5f);
  }

 private:
  std::array<float, paramCount> values_{};
};

}  // namespace halden
