#include "Quillon/SoftBypass.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace quillon {

void SoftBypass::allocate(std::size_t channels, double sampleRate, std::uint32_t maximumFrames,
                          std::uint32_t latencyFrames) {
  channels_ = channels;
  maximumFrames_ = maximumFrames;
  latency_ = latencyFrames;
  step_ = static_cast<float>(1 / std::max(1.0, fadeSeconds * sampleRate));
  late_.assign(channels * latencyFrames, 0.0f);
  dry_.assign(channels * maximumFrames, 0.0f);
  place_ = 0;
  isFresh_ = true;
}

void SoftBypass::keep(std::span<const float* const> inputs, std::uint32_t frames, bool bypassed) {
  // What is late has to be there when the switch is turned.
  if (!isHeard(bypassed) && latency_ == 0) return;
  for (std::size_t channel = 0; channel < channels_; ++channel) {
    const float* const input =
        inputs.empty() ? nullptr : inputs[std::min(channel, inputs.size() - 1)];
    float* const dry = dry_.data() + channel * maximumFrames_;
    if (input)
      std::copy_n(input, frames, dry);
    else
      std::fill_n(dry, frames, 0.0f);
    float* const late = late_.data() + channel * latency_;
    std::uint32_t place = place_;
    for (std::uint32_t i = 0; i < frames && latency_ > 0; ++i) {
      std::swap(late[place], dry[i]);
      if (++place == latency_) place = 0;
    }
  }
  if (latency_ > 0) place_ = (place_ + frames) % latency_;
}

void SoftBypass::mix(std::span<float* const> outputs, std::uint32_t frames, bool bypassed) {
  const float aim = bypassed ? 0 : 1;
  if (std::exchange(isFresh_, false)) wet_ = aim;
  if (!isHeard(bypassed)) return;
  const float first = wet_;
  const float step = aim > first ? step_ : -step_;
  const auto at = [&](std::uint32_t frame) {
    return std::clamp(first + step * static_cast<float>(frame + 1), 0.0f, 1.0f);
  };
  for (std::size_t channel = 0; channel < std::min(channels_, outputs.size()); ++channel) {
    const float* const dry = dry_.data() + channel * maximumFrames_;
    float* const output = outputs[channel];
    for (std::uint32_t i = 0; output && i < frames; ++i)
      output[i] = std::lerp(dry[i], output[i], at(i));
  }
  if (frames > 0) wet_ = at(frames - 1);
}

}  // namespace quillon
