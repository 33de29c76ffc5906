#include "examples/Halden/dsp/Controls.h"
#include "examples/Halden/dsp/Divisions.h"
#include "examples/Halden/dsp/FilterResponse.h"

namespace halden {
namespace {

/// Gain on the left at a place from -1 to 1, 1 in the middle; on the right at the mirrored place.
float panGain(float place) { return std::sqrt(std::clamp(1 - place, 0.0f, 2.0f)); }

}  // namespace

template <std::size_t count>
void Controls::Choice<count>::moveTo(int chosen, float share) {
  for (std::size_t i = 0; i < count; ++i) {
    const float aim = static_cast<int>(i) == chosen ? 1.0f : 0.0f;
    shares[i] += share * (aim - shares[i]);
    if (std::abs(aim - shares[i]) < 1e-4f) shares[i] = aim;
  }
}

bool ControlFrame::OscillatorPart::isSilent() const {
  const auto silent = [](const Ramp& ramp) { return ramp.isZero(); };
  return std::all_of(left.begin(), left.end(), silent) &&
         std::all_of(right.begin(), right.end(), silent);
}

void Controls::unisonFrame() {
  const int voices = now_.isOn(Param::unisonOn) ? std::clamp(now_.index(Param::unisonVoices), 1,
                                                             static_cast<int>(maximumUnison))
                                                : 1;
  const float detune = now_[Param::unisonDetune] / 100;
  for (int i = 0; i < static_cast<int>(maximumUnison); ++i) {
    Copy& copy = copies_[static_cast<std::size_t>(i)];
    const bool sounds = i < voices;
    const float place =
        voices > 1 && sounds ? 2 * static_cast<float>(i) / static_cast<float>(voices - 1) - 1 : 0;
    const float gain = sounds ? 1 / std::sqrt(static_cast<float>(voices)) : 0;
    // A copy that was silent begins at its place; one that falls silent stays where it was.
    if (sounds) copy.place = copy.gain == 0 ? place : copy.place + share_ * (place - copy.place);
    copy.gain += share_ * (gain - copy.gain);
    if (std::abs(gain - copy.gain) < 1e-4f) copy.gain = gain;
    frame_.detune[static_cast<std::size_t>(i)] = semitonesToRatio(0.5f * detune * copy.place);
  }
}

void Controls::oscillatorFrame(std::size_t index, int wave, float width, float level, float pan,
                               float semitones) {
  ControlFrame::OscillatorPart& part = frame_.oscillators[index];
  waves_[index].moveTo(std::clamp(wave, 0, waveCount - 1), share_);
  for (std::size_t i = 0; i < part.mix.size(); ++i) {
    part.mix[i].moveTo(waves_[index].shares[i], length_);
  }
  const float swing = 0.5f * (now_[Param::lfo1Width] * lfo1Depth_ +
                              now_[Param::curveOn] * now_[Param::curveWidth] * curveSwing());
  part.width.moveTo(std::clamp((width + swing) / 100, 0.03f, 0.97f), length_);
  part.semitones =
      semitones + now_[Param::tune] / 100 + hands_.bend * now_[Param::bendRange] + stepPitch_;
  const float spread = now_[Param::unisonSpread] / 100;
  for (std::size_t i = 0; i < maximumUnison; ++i) {
    // Neighbours in pitch sit on opposite sides, so that neither side is sharp.
    const float side = copies_[i].place * spread * (i % 2 ? -1.0f : 1.0f);
    const float place = std::clamp(pan + side, -1.0f, 1.0f);
    part.left[i].moveTo(level * copies_[i].gain * panGain(place), length_);
    part.right[i].moveTo(level * copies_[i].gain * panGain(-place), length_);
  }
}

void Controls::voiceFrame() {
  oscillatorFrame(0, now_.index(Param::osc1Wave), now_[Param::osc1Width], now_[Param::osc1Level],
                  now_[Param::osc1Pan], 12 * now_[Param::osc1Octave] + now_[Param::osc1Fine] / 100);
  oscillatorFrame(1, now_.index(Param::osc2Wave), now_[Param::osc2Width],
                  now_[Param::osc2On] * now_[Param::osc2Level], now_[Param::osc2Pan],
                  now_[Param::osc2Semi] + now_[Param::osc2Fine] / 100);
  frame_.sub.moveTo(now_[Param::subLevel] * (1 - now_[Param::subMute]), length_);
  frame_.noise.moveTo(now_[Param::noiseLevel] * (1 - now_[Param::noiseMute]), length_);
  const float fm = now_[Param::fmAmount] / 100;
  frame_.fmDepth.moveTo(1.2f * fm * fm, length_);
  frame_.fmRatio = now_[Param::fmRatio];

  frame_.velocityLevel = now_[Param::velocityLevel] / 100;
  frame_.glideSeconds = now_[Param::glide] / 1000;
  frame_.vibrato = lfo2Depth_ * now_[Param::lfo2Pitch] / 100;
  // The wheel's vibrato works whether LFO 2 is switched on or not.
  frame_.wheelVibrato = lfo2Value_ * hands_.wheel * now_[Param::wheelVibrato] / 100;
  frame_.vibratoFadeSeconds = now_[Param::lfo2Fade];

  const float tremolo =
      1 - now_[Param::lfo1On] * now_[Param::lfo1Level] / 100 * (0.5f - 0.5f * lfo1Value_);
  const float curveOn = now_[Param::curveOn];
  const float level = tremolo * (1 - curveOn * now_[Param::curveLevel] / 100 * (1 - curveValue_));
  const float place =
      (lfo2Depth_ * now_[Param::lfo2Pan] + curveOn * now_[Param::curvePan] * curveSwing()) / 100;
  frame_.left.moveTo(level * panGain(place), length_);
  frame_.right.moveTo(level * panGain(-place), length_);
}

void Controls::filterFrame() {
  enum { steepLow, low, band, high, notch, peak };
  filterType_.moveTo(std::clamp(now_.index(Param::filterType), 0, 5), share_);
  const auto& type = filterType_.shares;

  frame_.cutoffPitch = now_[Param::cutoff] + lfo1Depth_ * now_[Param::lfo1Cutoff] +
                       stepValue_ * now_[Param::stepsCutoff] +
                       hands_.pressure * now_[Param::pressureCutoff];
  frame_.keytrack = now_[Param::keytrack] / 100;
  frame_.envelopeSemitones = now_[Param::filterEnvelope];
  frame_.velocitySemitones = now_[Param::velocityCutoff];

  const float resonance = now_[Param::resonance] / 100;
  const float q = FilterResponse::quality(resonance, type[steepLow]);
  frame_.damping.moveTo(1 / q, length_);

  frame_.filterAmount.moveTo(now_[Param::filterOn], length_);
  frame_.steep.moveTo(type[steepLow], length_);
  frame_.low.moveTo(type[low] + type[notch] + type[peak], length_);
  frame_.high.moveTo(type[high] + type[notch] - type[peak], length_);
  frame_.band.moveTo(type[band] * FilterResponse::bandGain(q), length_);

  const float drive = now_[Param::filterDrive];
  const float gain = decibelsToGain(drive);
  frame_.filterInput.moveTo(FilterResponse::inputGain(resonance), length_);
  frame_.driveAmount.moveTo(std::min(drive / 3, 1.0f), length_);
  frame_.driveInput.moveTo(gain, length_);
  frame_.driveOutput.moveTo(std::pow(gain, -0.6f), length_);

  frame_.filterTimes = {now_[Param::filterAttack] / 1000, now_[Param::filterDecay] / 1000,
                        now_[Param::filterSustain] / 100, now_[Param::filterRelease] / 1000};
  frame_.ampTimes = {now_[Param::ampAttack] / 1000, now_[Param::ampDecay] / 1000,
                     now_[Param::ampSustain] / 100, now_[Param::ampRelease] / 1000};
}

float Controls::divisionSeconds(int division) const {
  return divisionBeats(division) * 60 / tempo_;
}

void Controls::effectsFrame() {
  EffectsFrame& effects = frame_.effects;

  const float drive = decibelsToGain(now_[Param::driveAmount]);
  effects.drive.amount.moveTo(now_[Param::driveOn], length_);
  effects.drive.inputGain.moveTo(drive, length_);
  effects.drive.outputGain.moveTo(std::pow(drive, -0.62f), length_);
  const float bias = now_[Param::driveBias] / 100;
  effects.drive.bias.moveTo(bias, length_);
  driveShape_.moveTo(std::clamp(now_.index(Param::driveShape), 0, 3), share_);
  float constantPart = 0;
  for (std::size_t i = 0; i < driveShapeCount; ++i) {
    const float share = driveShape_.shares[i];
    effects.drive.shapes[i].moveTo(share, length_);
    if (bias != 0) constantPart += share * driven(static_cast<DriveShape>(i), drive * bias);
  }
  effects.drive.constantPart.moveTo(constantPart, length_);
  effects.drive.mix.moveTo(now_[Param::driveMix] / 100, length_);
  effects.drive.toneFrequency = now_[Param::driveTone];

  effects.chorus.amount.moveTo(now_[Param::chorusOn], length_);
  effects.chorus.mix.moveTo(now_[Param::chorusMix] / 100, length_);
  effects.chorus.depth.moveTo(now_[Param::chorusDepth] / 100, length_);
  effects.chorus.rate = now_[Param::chorusRate];

  effects.delay.amount.moveTo(now_[Param::delayOn], length_);
  effects.delay.mix.moveTo(now_[Param::delayMix] / 100, length_);
  effects.delay.feedback.moveTo(now_[Param::delayFeedback] / 100, length_);
  effects.delay.lowCutFrequency = now_[Param::delayLowCut];
  effects.delay.toneFrequency = now_[Param::delayTone];
  effects.delay.seconds = now_.isOn(Param::delaySync)
                              ? divisionSeconds(now_.index(Param::delayDivision))
                              : now_[Param::delayTime] / 1000;

  effects.reverb.amount.moveTo(now_[Param::reverbOn], length_);
  effects.reverb.mix.moveTo(now_[Param::reverbMix] / 100, length_);
  effects.reverb.predelay = now_[Param::reverbPredelay] / 1000;
  effects.reverb.decay = now_[Param::reverbDecay];
  effects.reverb.toneFrequency = now_[Param::reverbTone];

  effects.volume.moveTo(now_[Param::volume], length_);
}

}  // namespace halden
