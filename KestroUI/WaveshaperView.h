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
  Shape shape(Source source) const;
  double out(double in, Source source) const;
  platform::Point placeOf(double in, double out) const;
  platform::Path path(Source source) const;
};

}  // namespace kestroui
