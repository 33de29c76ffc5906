#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "platform/AudioUnit.h"

namespace quillon {

/// What a plug-in format renders an audio unit through, so that no plug-in has to protect itself: what
/// a host hands in is sound, a tempo and a place in the song, and never a NaN, an infinity or a number
/// that no sound has; denormal numbers are zero meanwhile; and what comes out is sound or silence.
/// Costs one look at each sample. The audio unit outlives it.
class RenderGuard {
 public:
  /// 120 dB: what is louder is no sound.
  static constexpr float loudest = 1e6f;

  explicit RenderGuard(platform::AudioUnit& audioUnit);

  /// Before the first render, and whenever blocks may be longer; never during a render.
  void allocate(std::uint32_t maximumFrames);
  /// As the audio unit's own. Audio thread.
  void render(const platform::RenderBlock& block);

 private:
  platform::AudioUnit& audioUnit_;
  std::uint32_t maximumFrames_ = 0;
  std::vector<const float*> inputs_;
  /// Room for a copy of each input: the host's own buffers are not to be written.
  std::vector<float> clean_;
};

}  // namespace quillon
