#pragma once

#include "KestroUI/DisplayView.h"
#include "KestroUI/TransferCurve.h"
#include "platform/Path.h"

namespace kestroui {

/// The transfer curves of one or two compressors, level out over level in. A handle at the bend is
/// the threshold, one at the end of the curve the ratio; a bar on the right and a dot on the curve
/// show the gain reduction.
class CompressorView : public DisplayView {
 public:
  /// 1 or 2.
  explicit CompressorView(std::size_t compressors = 1);

 protected:
  std::vector<Handle> pictureHandles() const override;
  void paintPicture(platform::Canvas& canvas) override;
  bool isMeasured(std::size_t part) const override;

 private:
  struct Scale {
    double low, high;
  };

  Scale scale() const;
  TransferCurve curve(std::size_t compressor, Source source) const;
  double makeUp(std::size_t compressor, Source source) const;
  /// What is left of the picture beside the bars of the gain reduction.
  platform::Rect curvePlace() const;
  platform::Point placeOfLevel(double in, double out) const;
  platform::Path path(std::size_t compressor, Source source) const;
  void paintReduction(platform::Canvas& canvas, std::size_t compressor, double reduction);

  std::size_t compressors_;
};

}  // namespace kestroui
