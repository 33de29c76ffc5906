#pragma once

#include <array>
#include <cstddef>

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
  count
};

inline constexpr std::size_t paramCount = static_cast<std::size_t>(Param::count);

/// One value for each parameter, in the parameter's own unit.
class ParamValues {
 public:
  float& operator[](Param param) { return values_[static_cast<std::size_t>(param)]; }
  float operator[](Param param) const { return values_[static_cast<std::size_t>(param)]; }
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
