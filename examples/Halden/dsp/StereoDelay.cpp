#include "examples/Halden/dsp/StereoDelay.h"

namespace halden {
namespace {

constexpr float fadeSeconds = 0.04f;
constexpr float minSeconds = 0.001f;

}  // namespace

float StereoDelay::tailSeconds(float seconds, float feedback, float lowCutFrequency,
                               float toneFrequency, float sampleRate) {
  const auto warped = [sampleRate](float frequency) {
    const float share = OnePole::share(frequency, sampleRate);
    return share / (1 - share);
  };
  // A turn is as loud as the filters are where they let most through: in the middle between them.
  const float high = warped(toneFrequency);
  const float turn = std::clamp(feedback, 0.0f, 0.99f) * high / (high + warped(lowCutFrequency));
  const float turns = turn > 0 ? std::ceil(std::log(0.001f) / std::log(turn)) : 0;
  return std::clamp(seconds, minSeconds, maxSeconds) * (1 + turns);
}

void StereoDelay::setSampleRate(float sampleRate) {
  sampleRate_ = sampleRate;
  for (DelayLine& line : lines_) {
    line.resize(static_cast<std::size_t>(maxSeconds * sampleRate) + 4);
  }
  reset();
}

void StereoDelay::reset() {
  for (DelayLine& line : lines_) line.clear();
  for (OnePole& filter : highCut_) filter.reset();
  for (OnePole& filter : lowCut_) filter.reset();
  time_ = nextTime_ = fade_ = quietSamples_ = heardSamples_ = 0;
  resting_ = true;
}

void StereoDelay::chooseTime(float seconds) {
  const float wanted = std::clamp(seconds, minSeconds, maxSeconds) * sampleRate_;
  if (resting_) {
    time_ = nextTime_ = wanted;
    fade_ = 0;
  } else if (fade_ == 0 && std::abs(wanted - time_) > 0.5f) {
    nextTime_ = wanted;
    fade_ = 1e-6f;
  }
}

void StereoDelay::process(const Settings& settings, int begin, int count, float* left,
                          float* right) {
  // Switched off, it rests once its own echoes have died; until then they turn unheard.
  const bool off = settings.amount.isZero();
  if (off && resting_) return;
  if (resting_) {
    // A read goes up to two samples beyond its place.
    constexpr int margin = 4;
    for (DelayLine& line : lines_)
      for (int i = 0; i < margin; ++i) line.push(0);
    heardSamples_ = margin;
  }
  chooseTime(settings.seconds);
  resting_ = false;

  const float highCut = OnePole::share(settings.toneFrequency, sampleRate_);
  const float lowCut = OnePole::share(settings.lowCutFrequency, sampleRate_);
  const float fadeStep = 1 / (fadeSeconds * sampleRate_);
  for (int i = 0; i < count; ++i) {
    const int at = begin + i;
    float echoes[2];
    for (int side = 0; side < 2; ++side) {
      const DelayLine& line = lines_[static_cast<std::size_t>(side)];
      const auto read = [&](float time) { return heardSamples_ > time + 2 ? line.read(time) : 0; };
      float echo = read(time_);
      if (fade_ > 0) {
        const float blend = fade_ * fade_ * (3 - 2 * fade_);
        echo += blend * (read(nextTime_) - echo);
      }
      echo = highCut_[static_cast<std::size_t>(side)].low(echo, highCut);
      echoes[side] = lowCut_[static_cast<std::size_t>(side)].high(echo, lowCut);
    }
    if (fade_ > 0) {
      fade_ += fadeStep;
      if (fade_ >= 1) {
        time_ = nextTime_;
        fade_ = 0;
      }
    }

    const float amount = settings.amount.at(at);
    const float feedback = settings.feedback.at(at);
    const float middle = 0.5f * (left[i] + right[i]);
    const float side = 0.25f * (left[i] - right[i]);
    // The sound enters on the left and changes sides at each turn.
    const float toLeft = amount * (middle + side) + feedback * echoes[1];
    const float toRight = amount * -side + feedback * echoes[0];
    lines_[0].push(softClip(toLeft * 0.5f) * 2);
    lines_[1].push(softClip(toRight * 0.5f) * 2);
    heardSamples_ = std::min(heardSamples_ + 1, 2 * maxSeconds * sampleRate_);
    const float loudest =
        std::max({std::abs(toLeft), std::abs(toRight), std::abs(echoes[0]), std::abs(echoes[1])});
    quietSamples_ = loudest > inaudible ? 0 : quietSamples_ + 1;

    const float wet = amount * settings.mix.at(at);
    left[i] += wet * echoes[0];
    right[i] += wet * echoes[1];
  }

  resting_ = off && isQuiet();
}

}  // namespace halden
