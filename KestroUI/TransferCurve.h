#pragma once

#include <algorithm>
#include <cmath>

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

}  // namespace kestroui
