#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace quillon {

/// The switch with which a host compares a plug-in with the sound before it. The sound before comes as
/// late as the audio unit's own does, and one fades into the other, so that nothing clicks and nothing
/// moves; an instrument fades to silence. The audio unit is rendered meanwhile, so that its echoes and
/// notes are where they would be when it is heard again.
class SoftBypass {
 public:
  /// From one to the other, in seconds.
  static constexpr double fadeSeconds = 0.02;

  /// Before the first block and whenever one of these changes.
  void allocate(std::size_t channels, double sampleRate, std::uint32_t maximumFrames,
                std::uint32_t latencyFrames);
  /// Before the audio unit renders the block, which may be into the same buffers: keeps the sound before,
  /// a single channel for all. Audio thread, as the next.
  void keep(std::span<const float* const> inputs, std::uint32_t frames, bool bypassed);
  /// After it: fades where the switch has changed. The first block does not fade.
  void mix(std::span<float* const> outputs, std::uint32_t frames, bool bypassed);

 private:
  bool isHeard(bool bypassed) const { return bypassed || wet_ < 1; }

  std::size_t channels_ = 0;
  std::uint32_t maximumFrames_ = 0;
  std::uint32_t latency_ = 0;
  /// What a fade moves by with each frame.
  float step_ = 1;
  /// The part of the audio unit's own sound, from 0 to 1.
  float wet_ = 1;
  bool isFresh_ = true;
  /// Of each channel in turn: what was before, and how it is to be heard in the block.
  std::vector<float> late_, dry_;
  std::uint32_t place_ = 0;
};

}  // namespace quillon
