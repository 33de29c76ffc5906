#pragma once

#include "KestroUI/DisplayView.h"

namespace kestroui {

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
