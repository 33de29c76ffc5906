#include "examples/Halden/dsp/Controls.h"

#include "examples/Halden/dsp/Divisions.h"
#include "examples/Halden/dsp/StateVariableFilter.h"

namespace halden {
namespace {

constexpr float smoothingSeconds = 0.004f;
constexpr float silentLevel = -48;

float cutoffToPitch(float hertz) { return 69 + 12 * std::log2(std::max(hertz, 1.0f) / 440); }

/// Parameters that are read as they are, since something else keeps their changes smooth.
bool isDiscrete(Param param) {
  switch (param) {
    case Param::osc1Wave:
    case Param::osc2Wave:
    case Param::unisonVoices:
    case Param::filterType:
    case Param::lfo1Wave:
    case Param::lfo1Division:
    case Param::lfo2Wave:
    case Param::lfo2Beats:
    case Param::delayTime:
    case Param::delayDivision:
    case Param::voiceMode:
    case Param::panic:
      return true;
    default:
      return false;
  }
}

/// What a parameter is while it glides: levels move as gains and the cutoff as a pitch.
float smoothedForm(Param param, float value) {
  switch (param) {
    case Param::osc1Level:
    case Param::osc2Level:
    case Param::subLevel:
    case Param::noiseLevel:
      return levelToGain(value, silentLevel);
    case Param::volume:
      return levelToGain(value, -60);
    case Param::cutoff:
      return cutoffToPitch(value);
    default:
      return value;
  }
}

/// A share of the way, and the rest at once when it is next to nothing.
void approach(float& value, float aim, float share) {
  const float way = aim - value;
  value = std::abs(way) <= 1e-5f * (1 + std::abs(aim)) ? aim : value + share * way;
}

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

void Controls::setSampleRate(float sampleRate) {
  sampleRate_ = sampleRate;
  reset();
}

void Controls::reset() {
  lfo1_.reset(11);
  lfo2_.reset(23);
  frame_ = {};
  early_ = {};
  now_ = {};
  hands_ = {};
  waves_ = {};
  filterType_ = {};
  copies_ = {};
  frame_.sampleRate = sampleRate_;
  fresh_ = true;
}

void Controls::setTransport(float tempo, double beat, bool playing) {
  tempo_ = tempo > 1 && tempo < 10000 ? tempo : 120;
  beat_ = std::isfinite(beat) ? beat : 0;
  playing_ = playing;
}

const ControlFrame& Controls::advance(const ParamValues& target, const Performance& performance,
                                      int length) {
  length_ = length;
  frame_.length = length;
  // The first frame takes every value at once; its ramps then start where they end.
  const int passes = fresh_ ? 2 : 1;
  share_ = fresh_ ? 1 : smoothingShare(smoothingSeconds, sampleRate_, static_cast<float>(length));
  smooth(target, performance);
  advanceLfos();
  for (int pass = 0; pass < passes; ++pass) {
    unisonFrame();
    voiceFrame();
    filterFrame();
    effectsFrame();
  }
  fresh_ = false;
  return frame_;
}

void Controls::smooth(const ParamValues& target, const Performance& performance) {
  for (std::size_t i = 0; i < paramCount; ++i) {
    if (!std::isfinite(target.at(i))) continue;
    const auto param = static_cast<Param>(i);
    if (isDiscrete(param)) {
      now_.at(i) = target.at(i);
      continue;
    }
    const float aim = smoothedForm(param, target.at(i));
    approach(early_.at(i), aim, share_);
    approach(now_.at(i), early_.at(i), share_);
  }
  hands_.bend += share_ * (performance.bend - hands_.bend);
  hands_.wheel += share_ * (performance.wheel - hands_.wheel);
  hands_.pressure += share_ * (performance.pressure - hands_.pressure);
}

void Controls::advanceLfos() {
  const float seconds = static_cast<float>(length_) / sampleRate_;
  const float beatsPerSecond = tempo_ / 60;
  const auto run = [&](Lfo& lfo, int wave, float hertz, bool synced, float beats, float offset) {
    if (synced) {
      hertz = beatsPerSecond / beats;
      if (playing_) {
        const double cycles = beat_ / static_cast<double>(beats);
        lfo.setPhase(static_cast<float>(cycles - std::floor(cycles)));
      }
    }
    lfo.advance(static_cast<LfoWave>(std::clamp(wave, 0, lfoWaveCount - 1)), hertz, offset,
                seconds);
    return lfo.value();
  };
  lfo1Value_ =
      run(lfo1_, now_.index(Param::lfo1Wave), now_[Param::lfo1Rate], now_.isOn(Param::lfo1Sync),
          divisionBeats(now_.index(Param::lfo1Division)), now_[Param::lfo1Phase] / 360);
  lfo2Value_ =
      run(lfo2_, now_.index(Param::lfo2Wave), now_[Param::lfo2Rate], now_.isOn(Param::lfo2Sync),
          std::max(1.0f, std::round(now_[Param::lfo2Beats])), 0);
  lfo1Depth_ = now_[Param::lfo1On] * lfo1Value_;
  lfo2Depth_ = now_[Param::lfo2On] * lfo2Value_;
  beat_ += static_cast<double>(seconds * beatsPerSecond);
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
  const float swing = now_[Param::lfo1Width] * lfo1Depth_ * 0.5f;
  part.width.moveTo(std::clamp((width + swing) / 100, 0.03f, 0.97f), length_);
  part.semitones = semitones + now_[Param::tune] / 100 + hands_.bend * now_[Param::bendRange];
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
  frame_.sub.moveTo(now_[Param::subLevel], length_);
  frame_.noise.moveTo(now_[Param::noiseLevel], length_);
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
  const float place = lfo2Depth_ * now_[Param::lfo2Pan] / 100;
  frame_.left.moveTo(tremolo * panGain(place), length_);
  frame_.right.moveTo(tremolo * panGain(-place), length_);
}

void Controls::filterFrame() {
  enum { steepLow, low, band, high, notch, peak };
  filterType_.moveTo(std::clamp(now_.index(Param::filterType), 0, 5), share_);
  const auto& type = filterType_.shares;

  frame_.cutoffPitch = now_[Param::cutoff] + lfo1Depth_ * now_[Param::lfo1Cutoff] +
                       hands_.pressure * now_[Param::pressureCutoff];
  frame_.keytrack = now_[Param::keytrack] / 100;
  frame_.envelopeSemitones = now_[Param::filterEnvelope];
  frame_.velocitySemitones = now_[Param::velocityCutoff];

  // Four poles are flat with one pair at Q 1.31 and the other at 0.54, two with Q 0.71.
  const float resonance = now_[Param::resonance] / 100;
  const float flat = 0.7071f + type[steepLow] * (1.3066f - 0.7071f);
  constexpr float highestQ = 32;
  const float q = flat * std::pow(highestQ / flat, resonance);
  frame_.damping.moveTo(1 / q, length_);

  frame_.filterAmount.moveTo(now_[Param::filterOn], length_);
  frame_.steep.moveTo(type[steepLow], length_);
  frame_.low.moveTo(type[low] + type[notch] + type[peak], length_);
  frame_.high.moveTo(type[high] + type[notch] - type[peak], length_);
  // The band's own peak is Q high: brought down so that noise through it stays as loud.
  frame_.band.moveTo(type[band] * 1 / std::sqrt(q), length_);

  const float drive = now_[Param::filterDrive];
  const float gain = decibelsToGain(drive);
  frame_.filterInput.moveTo(1 - 0.4f * resonance, length_);
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
  effects.drive.mix.moveTo(now_[Param::driveMix] / 100, length_);
  effects.drive.toneFrequency = now_[Param::driveTone];

  effects.chorus.amount.moveTo(now_[Param::chorusOn], length_);
  effects.chorus.mix.moveTo(now_[Param::chorusMix] / 100, length_);
  effects.chorus.depth.moveTo(now_[Param::chorusDepth] / 100, length_);
  effects.chorus.rate = now_[Param::chorusRate];

  effects.delay.amount.moveTo(now_[Param::delayOn], length_);
  effects.delay.mix.moveTo(now_[Param::delayMix] / 100, length_);
  effects.delay.feedback.moveTo(now_[Param::delayFeedback] / 100, length_);
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
