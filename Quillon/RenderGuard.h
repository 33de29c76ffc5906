#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "Quillon/SoftBypass.h"
#include "platform/AudioUnit.h"

namespace quillon {

/// What a plug-in format renders an audio unit through, so that no plug-in has to look after any of
/// this itself:
/// - What a host hands in is sound, a tempo and a place in the song, and never a NaN, an infinity or a
///   number that no sound has; denormal numbers are zero meanwhile; what comes out is sound or silence.
/// - A host's single channel is heard on all that the audio unit has, and gets the mean of all.
/// - An output's buffer may be any input's too; the audio unit meets that only for channels of the same
///   number.
/// - Bypass: see SoftBypass.
///
/// Costs one look at each sample. The audio unit outlives it.
class RenderGuard {
 public:
  /// 120 dB: what is louder is no sound.
  static constexpr float loudest = 1e6f;

  explicit RenderGuard(platform::AudioUnit& audioUnit);

  /// After the audio unit's own, before the first render; never during one.
  void allocate(double sampleRate, std::uint32_t maximumFrames);
  /// As the audio unit's own; at most maximumFrames, more are silence. Audio thread.
  void render(const platform::RenderBlock& block, bool bypassed = false);

 private:
  std::span<const float* const> clean(std::span<const float* const> given, std::size_t first,
                                      std::size_t wanted, const platform::RenderBlock& block);
  void renderOne(platform::RenderBlock& block);

  platform::AudioUnit& audioUnit_;
  std::uint32_t maximumFrames_ = 0;
  SoftBypass bypass_;
  /// The inputs, then the side chain.
  std::vector<const float*> inputs_;
  std::vector<float*> outputs_;
  /// Room for a copy of each: the host's own buffers are not to be written.
  std::vector<float> copies_, rendered_;
};

}  // namespace quillon
