#include "Quillon/RenderGuard.h"

#include <algorithm>
#include <cmath>

#include "Quillon/DenormalGuard.h"

namespace quillon {
namespace {

/// Also false for a NaN.
bool isSound(float sample) { return std::abs(sample) <= RenderGuard::loudest; }

bool isSound(const float* samples, std::uint32_t frames) {
  // Without a way out of the loop, the compiler looks at several samples at once.
  int faults = 0;
  for (std::uint32_t i = 0; i < frames; ++i) faults += isSound(samples[i]) ? 0 : 1;
  return faults == 0;
}

}  // namespace

RenderGuard::RenderGuard(platform::AudioUnit& audioUnit)
    : audioUnit_(audioUnit), inputs_(static_cast<std::size_t>(audioUnit.inputChannels())) {}

void RenderGuard::allocate(std::uint32_t maximumFrames) {
  maximumFrames_ = maximumFrames;
  clean_.assign(inputs_.size() * maximumFrames, 0.0f);
}

void RenderGuard::render(const platform::RenderBlock& block) {
  const DenormalGuard denormals;
  platform::RenderBlock guarded = block;
  if (block.inputs.size() <= inputs_.size() && block.frames <= maximumFrames_) {
    for (std::size_t channel = 0; channel < block.inputs.size(); ++channel) {
      const float* input = block.inputs[channel];
      if (input && !isSound(input, block.frames)) {
        float* const copy = clean_.data() + channel * maximumFrames_;
        std::replace_copy_if(
            input, input + block.frames, copy, [](float sample) { return !isSound(sample); }, 0.0f);
        input = copy;
      }
      inputs_[channel] = input;
    }
    guarded.inputs = {inputs_.data(), block.inputs.size()};
  }
  const platform::HostTransport standard;
  if (!std::isfinite(block.transport.tempo)) guarded.transport.tempo = standard.tempo;
  if (!std::isfinite(block.transport.beatPosition))
    guarded.transport.beatPosition = standard.beatPosition;

  audioUnit_.render(guarded);

  for (float* const output : block.outputs)
    if (output && !isSound(output, block.frames))
      std::replace_if(
          output, output + block.frames, [](float sample) { return !isSound(sample); }, 0.0f);
}

}  // namespace quillon
