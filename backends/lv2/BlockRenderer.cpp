#include "backends/lv2/BlockRenderer.h"

#include <algorithm>

namespace lv2_backend {

BlockRenderer::BlockRenderer(platform::AudioUnit& audioUnit, const Urids& urids, double sampleRate,
                             std::uint32_t maximumFrames)
    : guard_(audioUnit),
      transport_(urids, sampleRate),
      sampleRate_(sampleRate),
      maximumFrames_(maximumFrames),
      inputs_(static_cast<std::size_t>(audioUnit.inputChannels())),
      sideChain_(static_cast<std::size_t>(audioUnit.sideChainChannels())),
      outputs_(static_cast<std::size_t>(audioUnit.outputChannels())),
      blockInputs_(inputs_.size()),
      blockSideChain_(sideChain_.size()),
      blockOutputs_(outputs_.size()) {
  waiting_.reserve(midiCapacity);
  blockMidi_.reserve(midiCapacity);
}

void BlockRenderer::activate() {
  guard_.allocate(sampleRate_, maximumFrames_);
  waiting_.clear();
}

void BlockRenderer::begin(std::uint32_t frames) {
  frames_ = frames;
  done_ = 0;
}

std::uint32_t BlockRenderer::clampToCycle(std::int64_t frame) const {
  return static_cast<std::uint32_t>(std::clamp<std::int64_t>(frame, done_, frames_));
}

void BlockRenderer::midi(std::int64_t frame, const std::uint8_t* bytes, std::uint32_t size) {
  // System exclusive messages have no place in an audio unit's events.
  if (size < 1 || size > 3) return;
  const std::uint32_t place = clampToCycle(frame);
  if (waiting_.size() == midiCapacity) renderUpTo(place);
  if (waiting_.size() == midiCapacity) return;
  platform::MidiEvent event;
  event.frame = place;
  event.size = static_cast<std::uint8_t>(size);
  std::copy_n(bytes, size, event.bytes);
  waiting_.push_back(event);
}

void BlockRenderer::position(std::int64_t frame, const LV2_Atom_Object& position) {
  renderUpTo(clampToCycle(frame));
  transport_.read(position);
}

void BlockRenderer::finish() {
  renderUpTo(frames_);
  // Only a cycle without frames, or one that ends with the message, leaves any: the next begins
  // with them.
  for (platform::MidiEvent& event : waiting_) event.frame = 0;
}

void BlockRenderer::renderUpTo(std::uint32_t end) {
  while (done_ < end) renderBlock(std::min(end - done_, maximumFrames_));
}

void BlockRenderer::renderBlock(std::uint32_t frames) {
  for (std::size_t i = 0; i < inputs_.size(); ++i) blockInputs_[i] = inputs_[i] + done_;
  const bool hasSideChain = !sideChain_.empty() && sideChain_[0];
  // A single channel that is connected is all of them.
  for (std::size_t i = 0; hasSideChain && i < sideChain_.size(); ++i)
    blockSideChain_[i] = (sideChain_[i] ? sideChain_[i] : sideChain_[0]) + done_;
  for (std::size_t i = 0; i < outputs_.size(); ++i) blockOutputs_[i] = outputs_[i] + done_;

  const auto isLater = [this, frames](const platform::MidiEvent& event) {
    return event.frame >= done_ + frames;
  };
  const auto end = std::find_if(waiting_.begin(), waiting_.end(), isLater);
  blockMidi_.assign(waiting_.begin(), end);
  waiting_.erase(waiting_.begin(), end);
  for (platform::MidiEvent& event : blockMidi_) event.frame -= done_;

  platform::RenderBlock block;
  block.inputs = blockInputs_;
  if (hasSideChain) block.sideChain = blockSideChain_;
  block.outputs = blockOutputs_;
  block.frames = frames;
  block.midi = blockMidi_;
  block.transport = transport_.now();
  guard_.render(block, bypassed_);
  transport_.advance(frames);
  done_ += frames;
}

}  // namespace lv2_backend
