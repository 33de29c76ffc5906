#pragma once

#include "KestroUI/DisplayView.h"
#include "platform/Path.h"

namespace kestroui {

/// The notches that a phaser cuts, level over frequency. The handle moves them sideways and, with
/// the feedback, up; the band that they sweep through is shaded.
class PhaserView : public DisplayView {
 public:
  PhaserView();

  /// The level in decibels, at `hertz`, of a sound added in equal parts to itself behind `stages`
  /// first-order all-pass filters at `centre`. `feedback`, between -1 and 1, is that of an all-pass
  /// loop around them (Schroeder's): it narrows or widens the notches and leaves them deep.
  static double decibelsAt(double hertz, double centre, int stages, double feedback);

 protected:
  std::vector<Handle> pictureHandles() const override;
  void paintPicture(platform::Canvas& canvas) override;

 private:
  int stages() const;
  platform::Path path(Source source) const;

  int points() const;
};

}  // namespace kestroui
