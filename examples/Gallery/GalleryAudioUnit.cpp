#include "examples/Gallery/GalleryAudioUnit.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace gallery {

using platform::AudioUnitParameterUnit;

namespace {

// Turns a second of the oscillator, and steps a second of the sequencers.
constexpr double rate = 0.2, stepRate = 4;
// What the displays of sound keep.
constexpr std::uint32_t displayedFrames = 4096;

std::vector<quillon::ParameterDescription> descriptions(const std::vector<GalleryPage>& pages) {
  std::vector<quillon::ParameterDescription> all;
  for (const GalleryPage& page : pages)
    all.insert(all.end(), page.parameters.begin(), page.parameters.end());
  all.push_back({.key = "level",
                 .displayName = "Level",
                 .minValue = -60,
                 .maxValue = 6,
                 .unit = AudioUnitParameterUnit::decibels});
  all.push_back({.key = "motion",
                 .displayName = "Motion",
                 .defaultValue = 1,
                 .unit = AudioUnitParameterUnit::boolean});
  for (std::size_t i = 0; i < all.size(); ++i) all[i].address = i;
  return all;
}

}  // namespace

GalleryAudioUnit::GalleryAudioUnit() : GalleryAudioUnit(galleryPages()) {}

GalleryAudioUnit::GalleryAudioUnit(const std::vector<GalleryPage>& pages)
    : CommonAudioUnit(descriptions(pages)),
      levelIndex_(*indexOfKey("level")),
      motionIndex_(*indexOfKey("motion")) {
  for (const GalleryPage& page : pages)
    for (const Playhead& playhead : page.playheads)
      playheads_.push_back({*indexOfKey(playhead.key), playhead.steps});
  for (std::size_t i = 0; i < parameterTree().allParameters().size(); ++i) {
    const bool isPlayhead = std::any_of(playheads_.begin(), playheads_.end(),
                                        [i](const Step& step) { return step.index == i; });
    const std::string& key = parameterTree().allParameters()[i]->key();
    if (!isPlayhead && getOutputValues(key)) moved_.push_back(i);
  }
  const auto recording = GallerySound::recording();
  for (const GalleryPage& page : pages) {
    for (const Sound& sound : page.sounds)
      for (int channel = 0; channel < sound.channels; ++channel)
        channels_.push_back({&addLiveBuffer(sound.key, displayedFrames), GallerySound(channel)});
    for (const std::string& key : page.recordings) setSampleData(key, recording);
  }
  display(displayedFrames);
  publish();
}

void GalleryAudioUnit::display(std::uint32_t frames) {
  for (Channel& channel : channels_)
    for (std::uint32_t frame = 0; frame < frames; ++frame)
      channel.buffer->append(channel.sound.next());
}

void GalleryAudioUnit::allocateRenderResources(double sampleRate, std::uint32_t maximumFrames) {
  CommonAudioUnit::allocateRenderResources(sampleRate, maximumFrames);
  level_.reset(sampleRate, 0.02, std::pow(10.0f, value(levelIndex_) / 20));
}

void GalleryAudioUnit::render(const platform::RenderBlock& block) {
  level_.setTarget(std::pow(10.0f, value(levelIndex_) / 20));
  for (std::uint32_t frame = 0; frame < block.frames; ++frame) {
    const float level = level_.next();
    for (std::size_t c = 0; c < block.outputs.size(); ++c)
      block.outputs[c][frame] = c < block.inputs.size() ? block.inputs[c][frame] * level : 0;
  }
  time_ = std::fmod(time_ + block.frames / sampleRate(), 3600);
  if (!isUIVisible()) return;
  display(block.frames);
  publish();
}

void GalleryAudioUnit::publish() {
  const bool isMoving = value(motionIndex_) > 0.5f;
  for (std::size_t n = 0; n < moved_.size(); ++n) {
    const platform::AUParameter& parameter = *parameterTree().allParameters()[moved_[n]];
    const double low = parameter.minValue(), high = parameter.maxValue();
    // Each a little later than the one before.
    const double swing =
        std::sin(2 * std::numbers::pi * rate * time_ + 0.7 + 0.5 * double(n)) * 0.12;
    // A frequency swings in pitch.
    const bool isPitch = parameter.unit() == AudioUnitParameterUnit::hertz;
    const double live = isPitch ? parameter.value() * std::pow(high / low, swing)
                                : parameter.value() + swing * (high - low);
    publishLive(moved_[n], static_cast<float>(std::clamp(live, low, high)));
    publishModulating(moved_[n], isMoving);
  }
  for (const Step& step : playheads_) {
    publishLive(step.index, static_cast<float>(std::fmod(time_ * stepRate + 2.4, step.count)));
    publishModulating(step.index, isMoving);
  }
}

}  // namespace gallery
