#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "examples/Halden/HaldenAudioUnit.h"

namespace halden {

/// Plays a HaldenAudioUnit without a host and keeps what it plays.
class HaldenPlayer {
 public:
  explicit HaldenPlayer(double rate = 48000, std::uint32_t blockFrames = 256)
      : sampleRate(rate), blockFrames_(blockFrames) {
    unit.allocateRenderResources(rate, blockFrames);
  }

  void set(const std::map<std::string, float>& values) {
    for (const auto& [key, value] : values) unit.setParameter(key, value);
  }
  /// Nothing but one plain wave at full level.
  void setBare(const std::map<std::string, float>& values = {}) {
    set({{"osc1Pan", 0},
         {"osc1Level", 0},
         {"osc2On", 0},
         {"subLevel", -48},
         {"filterOn", 0},
         {"chorusOn", 0},
         {"reverbOn", 0},
         {"lfo1Cutoff", 0},
         {"lfo2Pitch", 0},
         {"ampSustain", 100},
         {"volume", -6},
         {"velocityLevel", 0}});
    set(values);
    // A new format forgets where the values were, so that none of them glides.
    unit.allocateRenderResources(sampleRate, blockFrames_);
  }

  void midi(int status, int first, int second, std::uint32_t frame = 0) {
    const auto byte = [](int value) { return static_cast<std::uint8_t>(value); };
    events_.push_back({frame, {byte(status), byte(first), byte(second)}, 3});
  }
  void noteOn(int note, int velocity = 100, std::uint32_t frame = 0) {
    midi(0x90, note, velocity, frame);
  }
  void noteOff(int note, std::uint32_t frame = 0) { midi(0x80, note, 0, frame); }

  /// Renders so many frames, at whose start lie the frames of the events since the last call.
  void render(std::size_t frames) {
    const std::size_t begin = left.size();
    left.resize(begin + frames);
    right.resize(begin + frames);
    std::vector<platform::MidiEvent> due;
    for (std::size_t done = 0; done < frames; done += blockFrames_) {
      const auto count =
          static_cast<std::uint32_t>(std::min<std::size_t>(blockFrames_, frames - done));
      due.clear();
      for (const platform::MidiEvent& event : events_) {
        if (event.frame < done || event.frame >= done + count) continue;
        due.push_back(event);
        due.back().frame -= static_cast<std::uint32_t>(done);
      }
      float* outputs[2] = {left.data() + begin + done, right.data() + begin + done};
      platform::RenderBlock block;
      block.outputs = outputs;
      block.frames = count;
      block.midi = due;
      block.transport = transport;
      unit.render(block);
      transport.beatPosition += count * transport.tempo / 60 / sampleRate;
    }
    events_.clear();
  }
  void renderSeconds(double seconds) { render(static_cast<std::size_t>(seconds * sampleRate)); }
  void clear() {
    left.clear();
    right.clear();
  }

  /// Of the left side, between two times in seconds.
  double rms(double from, double to) const {
    const auto first = static_cast<std::size_t>(from * sampleRate);
    const auto last = static_cast<std::size_t>(to * sampleRate);
    double sum = 0;
    for (std::size_t i = first; i < last; ++i) sum += double{left[i]} * left[i];
    return std::sqrt(sum / static_cast<double>(last - first));
  }
  /// From the first to the last upward crossing of zero since `from` seconds.
  double frequency(double from) const {
    double first = -1, last = -1;
    int crossings = 0;
    for (auto i = static_cast<std::size_t>(from * sampleRate); i + 1 < left.size(); ++i) {
      if (left[i] > 0 || left[i + 1] <= 0) continue;
      last = static_cast<double>(i) + left[i] / double{left[i] - left[i + 1]};
      if (crossings++ == 0) first = last;
    }
    return (crossings - 1) * sampleRate / (last - first);
  }
  float peak() const {
    float peak = 0;
    for (float sample : left) peak = std::max(peak, std::abs(sample));
    for (float sample : right) peak = std::max(peak, std::abs(sample));
    return peak;
  }

  HaldenAudioUnit unit;
  double sampleRate;
  platform::HostTransport transport;
  std::vector<float> left, right;

 private:
  std::uint32_t blockFrames_;
  std::vector<platform::MidiEvent> events_;
};

inline double cents(double frequency, double reference) {
  return 1200 * std::log2(frequency / reference);
}
inline double decibels(double ratio) { return 20 * std::log10(ratio); }

}  // namespace halden
