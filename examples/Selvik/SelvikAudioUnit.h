#pragma once

#include <atomic>

#include "Quillon/CommonAudioUnit.h"
#include "examples/Selvik/DuckedEcho.h"

namespace selvik {

/// In the order of the parameters, whose addresses hosts store: append, never insert.
enum Param : std::size_t {
  time,
  division,
  sync,
  feedback,
  lowCut,
  highCut,
  mix,
  lowPass,
  lowPassResonance,
  highPass,
  highPassResonance,
  listen,
  threshold,
  ratio,
  release,
  reduction,
  scope,
  external
};

/// An echo that steps aside while the sound itself is loud in the band that it listens to,
/// or another sound that the host sends beside it.
class SelvikAudioUnit : public quillon::CommonAudioUnit {
 public:
  SelvikAudioUnit();

  bool hasStore() const override { return true; }
  int sideChainChannels() const override { return 2; }
  /// Until the echo is 60 dB down.
  double tailSeconds() const override;
  void allocateRenderResources(double sampleRate, std::uint32_t maximumFrames) override;
  void render(const platform::RenderBlock& block) override;

 private:
  DuckedEcho::Settings settings(double tempo) const;

  DuckedEcho echo_;
  /// The song's, as it was last heard.
  std::atomic<double> tempo_{120};
  quillon::LiveRing& before_;
  quillon::LiveRing& after_;
};

}  // namespace selvik
