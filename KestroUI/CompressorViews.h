#pragma once

#include <algorithm>
#include <cmath>

#include "KestroUI/DisplayView.h"
#include "platform/Path.h"

namespace kestroui {

/// The static curve of a compressor, in decibels. The knee is the quadratic one of Giannoulis,
/// Massberg and Reiss, "Digital Dynamic Range Compressor Design" (2012).
struct TransferCurve {
  double threshold = 0;
  /// 1 and above; infinity is a limiter.
  double ratio = 1;
  /// Width of the knee around the threshold, 0 and above.
  double knee = 0;

  /// Level out for level in, without make-up gain.
  double at(double level) const {
    const double slope = 1 / std::max(ratio, 1.0);
    const double over = level - threshold;
    if (knee > 0 && std::fabs(over) * 2 <= knee) {
      const double into = over + knee / 2;
      return level + (slope - 1) * into * into / (2 * knee);
    }
    return over <= 0 ? level : threshold + over * slope;
  }
  /// How much the level is lowered, 0 and above.
  double reductionAt(double level) const { return level - at(level); }
  /// The level at which it is lowered by `reduction`, at most `highest`.
  double levelOf(double reduction, double highest) const {
    double low = threshold - knee / 2, high = std::max(highest, low);
    for (int i = 0; i < 24; ++i) {
      const double middle = (low + high) / 2;
      (reductionAt(middle) < reduction ? low : high) = middle;
    }
    return (low + high) / 2;
  }
};

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
  enum Part : std::size_t { threshold, ratio, knee, reduction, makeUpGain, partsOfOne };

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

/// The bands of a multiband compressor, level over frequency. Of each band the floor of its box is
/// the threshold and the top of it what full level becomes, which is the ratio; its edges are
/// dragged sideways. The gain reduction hangs from the top.
class BandsView : public DisplayView {
 public:
  /// One band between two edges of its own, or three between two crossovers.
  enum class Bands { one, three };

  explicit BandsView(Bands bands);

 protected:
  std::vector<Handle> pictureHandles() const override;
  void paintPicture(platform::Canvas& canvas) override;
  bool isMeasured(std::size_t part) const override;
  float limited(std::size_t index, float value) const override;

 private:
  /// The edges first, since their names may hold those of the bands.
  enum Part : std::size_t { lowerEdge, upperEdge, firstBand };
  enum BandPart : std::size_t { threshold, ratio, reduction, partsOfABand };

  struct Band {
    double left, right, threshold, top;
  };

  std::size_t count() const { return bands_ == Bands::one ? 1 : 3; }
  std::pair<double, double> levels() const;
  double xOf(double hertz) const;
  double yOf(double level) const;
  double edge(std::size_t which, Source source) const;
  Band band(std::size_t which, Source source) const;
  void paintBand(platform::Canvas& canvas, std::size_t which);

  Bands bands_;
};

}  // namespace kestroui
