#pragma once

#include <atomic>

#include "Orvane/PluginEntry.h"
#include "Quillon/CommonAudioUnit.h"

namespace support {

/// An instrument whose every sample says what reached it, with one parameter of each kind and the
/// names that formats stumble over. Its outputs are the level, with 1 plus the velocity added at
/// the frame of a note, and the host's beat. Without semitones the cutoff is modulated for an editor.
/// While "sync" is on, the level's display shows the first
/// output.
class OddAudioUnit : public quillon::CommonAudioUnit {
 public:
  /// The order of the parameters.
  enum Param { level, cutoff, wave, sync, semitones, twin, otherTwin, maxBlock };
  static constexpr int parameterCount = maxBlock + 1;

  OddAudioUnit();

  int inputChannels() const override { return 0; }
  bool acceptsMidi() const override { return true; }
  int latencyFrames() const override { return 7; }
  void allocateRenderResources(double sampleRate, std::uint32_t maximumFrames) override;
  void render(const platform::RenderBlock& block) override;
  void hasUI(bool visible) override;

  /// Whether the last one that was told has an editor.
  static inline std::atomic<bool> isWatched{false};

 private:
  quillon::LiveRing& scope_;
};

const orvane::PluginEntry& oddPluginEntry();

}  // namespace support
