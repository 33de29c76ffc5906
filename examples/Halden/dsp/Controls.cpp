#include "examples/Halden/dsp/Controls.h"

#include "examples/Halden/dsp/Divisions.h"

namespace halden {
namespace {

constexpr float smoothingSeconds = 0.004f;
constexpr float silentLevel = -48;

float cutoffToPitch(float hertz) { return 69 + 12 * std::log2(std::max(hertz, 1.0f) / 440); }

/// Parameters that are read as they are, since something else keeps their changes smooth.
bool isDiscrete(Param param) {
  if (param >= Param::velocity1 && param <= Param::velocity5) return true;
  if (param >= Param::step1 && param <= Param::step16) return true;
  if (param >= Param::curve1 && param <= Param::curve16) return true;
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
    case Param::driveShape:
    case Param::scopeTime:
    case Param::stepsDivision:
    case Param::stepsCount:
    case Param::curveDivision:
    case Param::curveCount:
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

}  // namespace

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
  driveShape_ = {};
  copies_ = {};
  steps_ = {};
  curve_ = {};
  stepValue_ = stepPitch_ = curveValue_ = 0;
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
  advanceSequencers();
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
}

void Controls::advanceSequencers() {
  const float seconds = static_cast<float>(length_) / sampleRate_;
  const float beatsPerSecond = tempo_ / 60;
  const auto run = [&](Sequencer& sequencer, Param division, Param count) {
    const Sequencer::Tempo tempo{beatsPerSecond, divisionBeats(now_.index(division))};
    const int steps = std::clamp(now_.index(count), 1, static_cast<int>(Sequencer::maxSteps));
    if (playing_) sequencer.setBeat(beat_, tempo, steps);
    return std::pair(tempo, steps);
  };
  // Every jump takes two milliseconds at least, so that it may move anything without a click.
  const auto approachShare = [&](float glideSeconds) {
    return fresh_ ? 1 : 1 - std::exp(-seconds / (0.002f + glideSeconds));
  };

  const auto [stepTempo, steps] = run(steps_, Param::stepsDivision, Param::stepsCount);
  const float step = steps_.step(now_.from(Param::step1, Sequencer::maxSteps)) / 100;
  const float stepSeconds = stepTempo.beatsPerStep / beatsPerSecond;
  const float share = approachShare(0.3f * now_[Param::stepsGlide] / 100 * stepSeconds);
  const float on = now_[Param::stepsOn];
  stepValue_ += share * (on * step - stepValue_);
  // The pitch goes in semitones.
  stepPitch_ += share * (on * std::round(step * now_[Param::stepsPitch]) - stepPitch_);
  steps_.advance(stepTempo, steps, seconds);

  const auto [curveTempo, points] = run(curve_, Param::curveDivision, Param::curveCount);
  const float curve = curve_.curve(now_.from(Param::curve1, Sequencer::maxSteps), points) / 100;
  curveValue_ += approachShare(0) * (curve - curveValue_);
  curve_.advance(curveTempo, points, seconds);

  beat_ += static_cast<double>(seconds * beatsPerSecond);
}

void Controls::restartSequencers() {
  if (playing_) return;
  steps_.restart();
  curve_.restart();
}

float Controls::velocity(float played) const {
  const std::span<const float> points = now_.from(Param::velocity1, velocityPoints);
  return std::clamp(smoothCurve(points, played * (velocityPoints - 1)) / 100, 0.0f, 1.0f);
}

}  // namespace halden
