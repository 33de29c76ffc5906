#include "examples/Selvik/DuckedEcho.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace selvik {

void DuckedEcho::setSampleRate(double sampleRate) {
  sampleRate_ = static_cast<float>(sampleRate);
  delay_.setSampleRate(sampleRate_);
  ducker_.setSampleRate(sampleRate_);
  reset();
}

void DuckedEcho::reset() {
  delay_.reset();
  ducker_.reset();
  delaySettings_ = {};
  reduction_ = 0;
  fresh_ = true;
}

void DuckedEcho::process(const Settings& settings, std::span<const float* const> inputs,
                         std::span<const float* const> listened, std::span<float* const> outputs,
                         std::size_t frames) {
  reduction_ = 0;
  for (std::size_t done = 0; done < frames; done += frameLength) {
    const std::size_t count = std::min(frameLength, frames - done);
    // Before the outputs are written, which may be the same.
    std::array<float, frameLength> heard;
    for (std::size_t i = 0; i < count; ++i)
      heard[i] = 0.5f * (listened[0][done + i] + listened[1][done + i]);
    for (std::size_t side = 0; side < 2; ++side)
      if (inputs[side] != outputs[side])
        std::copy_n(inputs[side] + done, count, outputs[side] + done);
    glide(settings, count);
    processFrame(outputs[0] + done, outputs[1] + done, heard.data(), count);
  }
  // One bad number in a feedback path would stay for ever: better a gap than that.
  float sum = 0;
  for (std::size_t i = 0; i < frames; ++i) sum += outputs[0][i] + outputs[1][i];
  if (std::isfinite(sum)) return;
  reset();
  for (float* output : outputs.first(2)) std::fill_n(output, frames, 0.0f);
}

void DuckedEcho::glide(const Settings& settings, std::size_t count) {
  const float share =
      fresh_ ? 1 : halden::smoothingShare(0.01f, sampleRate_, static_cast<float>(count));
  const auto move = [share](float& value, float aim) {
    const float way = aim - value;
    value = std::abs(way) < 1e-4f ? aim : value + share * way;
  };
  // The delay fades from one time to the next by itself.
  now_.seconds = settings.seconds;
  move(now_.feedback, settings.feedback);
  move(now_.mix, settings.mix);
  move(now_.lowCut, settings.lowCut);
  move(now_.highCut, settings.highCut);
  move(now_.lowPass.hertz, settings.lowPass.hertz);
  move(now_.lowPass.resonance, settings.lowPass.resonance);
  move(now_.highPass.hertz, settings.highPass.hertz);
  move(now_.highPass.resonance, settings.highPass.resonance);
  move(now_.threshold, settings.threshold);
  move(now_.ratio, settings.ratio);
  move(now_.releaseSeconds, settings.releaseSeconds);
  move(now_.listen, settings.listen);
}

void DuckedEcho::processFrame(float* left, float* right, float* heard, std::size_t count) {
  ducker_.setFilters(now_.lowPass, now_.highPass);
  ducker_.setRelease(now_.releaseSeconds);
  for (std::size_t i = 0; i < count; ++i) heard[i] = ducker_.listen(heard[i]);
  const float down = ducker_.reduction(now_.threshold, now_.ratio);
  reduction_ = std::max(reduction_, down);

  const auto length = static_cast<int>(count);
  const auto move = [&](halden::Ramp& ramp, float aim) {
    if (fresh_) ramp = halden::Ramp::constant(aim);
    ramp.moveTo(aim, length);
  };
  move(delaySettings_.amount, 1);
  move(delaySettings_.feedback, now_.feedback);
  move(delaySettings_.mix, now_.mix * halden::decibelsToGain(-down));
  fresh_ = false;
  delaySettings_.seconds = now_.seconds;
  delaySettings_.lowCutFrequency = now_.lowCut;
  delaySettings_.toneFrequency = now_.highCut;
  delay_.process(delaySettings_, 0, length, left, right);

  for (std::size_t i = 0; i < count; ++i) {
    left[i] += now_.listen * (heard[i] - left[i]);
    right[i] += now_.listen * (heard[i] - right[i]);
  }
}

}  // namespace selvik
