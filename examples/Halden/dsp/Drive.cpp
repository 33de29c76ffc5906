#include "examples/Halden/dsp/Drive.h"

namespace halden {
namespace {

/// The coefficients at odd distances 1, 3, ... 15 from the middle of a half-band low-pass of 31
/// taps: a sinc under a Kaiser window (beta 6.5), scaled so that the pass band has gain 1. What
/// lies above 0.6 of the lower Nyquist's mirror is 65 dB down.
const std::array<float, 8>& halfBand() {
  static const std::array<float, 8> coefficients = [] {
    const auto bessel = [](double x) {
      double sum = 1, term = 1;
      for (int k = 1; k < 30; ++k) {
        term *= (x / (2 * k)) * (x / (2 * k));
        sum += term;
      }
      return sum;
    };
    std::array<double, 8> values{};
    double total = 0;
    for (int i = 0; i < 8; ++i) {
      const double distance = 2 * i + 1;
      const double share = distance / 16;
      const double window = bessel(6.5 * std::sqrt(1 - share * share)) / bessel(6.5);
      const double sinc = (i % 2 ? -1 : 1) / (3.14159265358979 * distance);
      values[static_cast<std::size_t>(i)] = sinc * window;
      total += 2 * sinc * window;
    }
    std::array<float, 8> result{};
    for (std::size_t i = 0; i < 8; ++i) result[i] = static_cast<float>(values[i] * 0.5 / total);
    return result;
  }();
  return coefficients;
}

/// The sum over taps at equal distances before and after the middle, which lies between the
/// entries `middle` and `middle + 1` of a history that is newest first.
float symmetricSum(const float* newest) {
  const auto& h = halfBand();
  float sum = 0;
  for (int i = 0; i < 8; ++i)
    sum += h[static_cast<std::size_t>(i)] * (newest[7 - i] + newest[8 + i]);
  return sum;
}

/// What the shapes that are heard make of a sample.
float bent(const Drive::Settings& settings, int at, float in) {
  float out = 0;
  for (std::size_t i = 0; i < driveShapeCount; ++i) {
    const Ramp& share = settings.shapes[i];
    if (!share.isZero()) out += share.at(at) * driven(static_cast<DriveShape>(i), in);
  }
  return out;
}

}  // namespace

float driven(DriveShape shape, float in) {
  switch (shape) {
    case DriveShape::soft:
      return softClip(in);
    case DriveShape::tube:
      return in < 0 ? softClip(in) : 1 - std::exp(-in);
    case DriveShape::hard:
      return std::clamp(in, -1.0f, 1.0f);
    case DriveShape::fold:
      return std::sin(0.5f * pi * in);
  }
  return in;
}

void Drive::setSampleRate(float sampleRate) {
  sampleRate_ = sampleRate;
  halfBand();
}

void Drive::reset() {
  for (Channel& channel : channels_) channel = {};
}

float Drive::Channel::process(float input, const Settings& settings, int sample) {
  // Each history is written twice, half its length apart, so that it can be read in one piece.
  position = (position + historyLength - 1) % historyLength;
  const auto write = [this](History& history, float value) {
    const auto place = static_cast<std::size_t>(position);
    history[place] = history[place + historyLength] = value;
  };
  const auto at = [this](const History& history) { return history.data() + position; };

  write(slow, input);
  // Up: one of the two new samples is an input sample (the middle tap), the other is between two.
  const float between = 2 * symmetricSum(at(slow));
  const float exact = at(slow)[7];
  const float gain = settings.inputGain.at(sample), bias = settings.bias.at(sample);
  const float rest = settings.constantPart.at(sample);
  write(fastEven, bent(settings, sample, gain * (between + bias)) - rest);
  write(fastOdd, bent(settings, sample, gain * (exact + bias)) - rest);
  // Down: the filter's middle tap falls on the exact samples.
  return 0.5f * at(fastOdd)[8] + symmetricSum(at(fastEven));
}

void Drive::process(const Settings& settings, int begin, int count, float* left, float* right) {
  const float toneShare = OnePole::share(settings.toneFrequency, sampleRate_);
  float* const sides[2] = {left, right};
  for (int side = 0; side < 2; ++side) {
    Channel& channel = channels_[static_cast<std::size_t>(side)];
    for (int i = 0; i < count; ++i) {
      const int at = begin + i;
      const float input = sides[side][i];
      const float clipped = channel.process(input, settings, at);
      const float wet = channel.tone.low(clipped, toneShare) * settings.outputGain.at(at);
      const float dry = channel.slow[static_cast<std::size_t>(channel.position) + latency];
      const float mixed = dry + settings.mix.at(at) * (wet - dry);
      sides[side][i] = input + settings.amount.at(at) * (mixed - input);
    }
  }
}

}  // namespace halden
