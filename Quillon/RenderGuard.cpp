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

void silence(const platform::RenderBlock& block) {
  for (float* const output : block.outputs)
    if (output) std::fill_n(output, block.frames, 0.0f);
}

}  // namespace

RenderGuard::RenderGuard(platform::AudioUnit& audioUnit)
    : audioUnit_(audioUnit),
      inputs_(static_cast<std::size_t>(audioUnit.inputChannels() + audioUnit.sideChainChannels())),
      outputs_(static_cast<std::size_t>(audioUnit.outputChannels())) {}

void RenderGuard::allocate(double sampleRate, std::uint32_t maximumFrames) {
  maximumFrames_ = maximumFrames;
  copies_.assign(inputs_.size() * maximumFrames, 0.0f);
  rendered_.assign(outputs_.size() * maximumFrames, 0.0f);
  for (std::size_t i = 0; i < outputs_.size(); ++i)
    outputs_[i] = rendered_.data() + i * maximumFrames;
  bypass_.allocate(outputs_.size(), sampleRate, maximumFrames,
                   static_cast<std::uint32_t>(std::max(0, audioUnit_.latencyFrames())));
}

std::span<const float* const> RenderGuard::clean(std::span<const float* const> given,
                                                 std::size_t first, std::size_t wanted,
                                                 const platform::RenderBlock& block) {
  if (given.empty()) return {};
  for (std::size_t i = 0; i < wanted; ++i) {
    const std::size_t channel = first + i;
    const float* input = given[std::min(i, given.size() - 1)];
    // An output of another number would be written before this one is read.
    bool needsCopy = false;
    for (std::size_t out = 0; out < block.outputs.size(); ++out)
      needsCopy |= out != channel && block.outputs[out] == input;
    if (input && (needsCopy || !isSound(input, block.frames))) {
      float* const copy = copies_.data() + channel * maximumFrames_;
      std::replace_copy_if(
          input, input + block.frames, copy, [](float sample) { return !isSound(sample); }, 0.0f);
      input = copy;
    }
    inputs_[channel] = input;
  }
  return {inputs_.data() + first, wanted};
}

void RenderGuard::render(const platform::RenderBlock& block, bool bypassed) {
  if (block.frames > maximumFrames_) return silence(block);
  const DenormalGuard denormals;
  platform::RenderBlock guarded = block;
  const auto inputs = static_cast<std::size_t>(audioUnit_.inputChannels());
  guarded.inputs = clean(block.inputs, 0, inputs, block);
  guarded.sideChain = clean(block.sideChain, inputs, inputs_.size() - inputs, block);
  const platform::HostTransport standard;
  if (!std::isfinite(block.transport.tempo)) guarded.transport.tempo = standard.tempo;
  if (!std::isfinite(block.transport.beatPosition))
    guarded.transport.beatPosition = standard.beatPosition;

  bypass_.keep(guarded.inputs, block.frames, bypassed);
  renderOne(guarded);
  bypass_.mix(block.outputs, block.frames, bypassed);

  for (float* const output : block.outputs)
    if (output && !isSound(output, block.frames))
      std::replace_if(
          output, output + block.frames, [](float sample) { return !isSound(sample); }, 0.0f);
}

void RenderGuard::renderOne(platform::RenderBlock& block) {
  if (block.outputs.size() != 1 || outputs_.size() < 2) return audioUnit_.render(block);
  float* const mono = block.outputs[0];
  block.outputs = outputs_;
  audioUnit_.render(block);
  const float share = 1 / static_cast<float>(outputs_.size());
  for (std::uint32_t i = 0; i < block.frames; ++i) {
    float sum = 0;
    for (const float* const output : outputs_) sum += output[i];
    mono[i] = sum * share;
  }
}

}  // namespace quillon
