#include "examples/Gallery/GallerySound.h"

#include <cmath>
#include <numbers>

namespace gallery {

namespace {

constexpr double sampleRate = 48000;
constexpr double turn = 2 * std::numbers::pi;

}  // namespace

float GallerySound::next() {
  phase_ += (110 + 55 * channel_) / sampleRate;
  slow_ += 0.15 / sampleRate;
  phase_ -= std::floor(phase_);
  slow_ -= std::floor(slow_);
  const double bright = 0.5 + 0.4 * std::sin(turn * slow_ + channel_);
  double sample = 0;
  double level = 0.62 - 0.16 * channel_;
  for (int harmonic = 1; harmonic <= 6; ++harmonic) {
    sample += level * std::sin(turn * phase_ * harmonic + harmonic * channel_);
    level *= bright;
  }
  return static_cast<float>(sample * 0.6);
}

std::shared_ptr<const platform::SampleData> GallerySound::recording() {
  auto data = std::make_shared<platform::SampleData>();
  data->sampleRate = sampleRate;
  data->channels.resize(1);
  const auto length = static_cast<std::size_t>(sampleRate * 1.5);
  data->channels[0].reserve(length);
  for (std::size_t i = 0; i < length; ++i) {
    const double time = static_cast<double>(i) / sampleRate;
    // Three strikes, each softer than the one before.
    const double since = std::fmod(time, 0.5);
    const double strike = 0.9 - 0.22 * std::floor(time / 0.5);
    const double body = std::sin(turn * 196 * since) * std::exp(-5 * since) +
                        0.5 * std::sin(turn * 541 * since) * std::exp(-11 * since) +
                        0.35 * std::sin(turn * 1063 * since) * std::exp(-24 * since);
    data->channels[0].push_back(
        static_cast<float>(strike * body / 1.85 * std::fmin(1, since * 400)));
  }
  return data;
}

}  // namespace gallery
