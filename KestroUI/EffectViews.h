#pragma once

#include <string_view>

#include "KestroUI/DisplayView.h"
#include "platform/Path.h"

namespace kestroui {

/// The curve of a waveshaper, out over in. Its handle rides on the curve: upwards is the drive,
/// sideways the bias. A value that chooses the shape is drawn as its name says.
class WaveshaperView : public DisplayView {
 public:
  enum class Shape { soft, hard, fold, rectify, crush, tube };

  WaveshaperView();

  /// The shape that a name means; soft for a name that says nothing.
  static Shape shapeNamed(std::string_view name);
  /// From -1 to 1 for any `in`.
  static double shaped(Shape shape, double in);

 protected:
  std::vector<Handle> pictureHandles() const override;
  void paintPicture(platform::Canvas& canvas) override;

 private:
  enum Part : std::size_t { drive, shapeChoice, bias, mix };

  Shape shape(Source source) const;
  double out(double in, Source source) const;
  platform::Point placeOf(double in, double out) const;
  platform::Path path(Source source) const;
};

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
  enum Part : std::size_t { centre, feedback, depth, stageCount };

  int stages() const;
  platform::Path path(Source source) const;

  int points() const;
};

/// Ribbons of light that the values shape: the first two (under the handle) how often they turn and
/// how high they rise, the next how far they stand apart, how they are twisted and how they fade.
/// It moves only when a value does.
class ZorvaView : public DisplayView {
 public:
  ZorvaView();

 protected:
  std::vector<Handle> pictureHandles() const override;
  void paintPicture(platform::Canvas& canvas) override;

 private:
  enum Part : std::size_t { turns, height, distance, twist, fade };

  platform::Path path_;
};

}  // namespace kestroui
