#pragma once

#include <vector>

#include "Quillon/CommonAudioUnit.h"
#include "Quillon/Smoother.h"
#include "examples/Gallery/GalleryPage.h"
#include "examples/Gallery/GallerySound.h"

namespace gallery {

/// Passes its input on at a level, and moves the live value of every parameter that has one with a
/// slow oscillator, so that the controls have something to show.
class GalleryAudioUnit : public quillon::CommonAudioUnit {
 public:
  GalleryAudioUnit();

  void allocateRenderResources(double sampleRate, std::uint32_t maximumFrames) override;
  void render(const platform::RenderBlock& block) override;

 private:
  struct Step {
    std::size_t index;
    int count;
  };

  explicit GalleryAudioUnit(const std::vector<GalleryPage>& pages);
  /// Plays so many frames of the gallery's own sound to the displays.
  void display(std::uint32_t frames);
  /// Publishes all live values for the present time.
  void publish();

  std::size_t levelIndex_, motionIndex_;
  std::vector<std::size_t> moved_;
  std::vector<Step> playheads_;
  struct Channel {
    quillon::LiveRing* buffer;
    GallerySound sound;
  };
  std::vector<Channel> channels_;
  quillon::Smoother level_;
  double time_ = 0;
};

}  // namespace gallery
