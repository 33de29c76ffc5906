#include "KestroUI/WaveformOverview.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace kestroui {

namespace {

// Points of width for each pair of extremes: finer is not seen.
constexpr double columnWidth = 1.5;
// Samples that are looked at for each column; a long recording is drawn from some of them.
constexpr std::size_t mostSamples = 512;

}  // namespace

bool WaveformOverview::setData(std::shared_ptr<const platform::SampleData> data) {
  if (data == data_) return false;
  data_ = std::move(data);
  outline_.clear();
  place_ = {};
  return true;
}

const platform::Path& WaveformOverview::outline(const platform::Rect& place) {
  if (place == place_) return outline_;
  place_ = place;
  outline_.clear();
  if (!data_ || data_->channels.empty() || place.isEmpty()) return outline_;
  const std::size_t length = data_->channels.front().size();
  if (length == 0) return outline_;
  const auto columns = static_cast<std::size_t>(std::clamp(
      place.width / columnWidth, 2.0, static_cast<double>(std::max<std::size_t>(length, 2))));
  std::vector<platform::Point> below;
  below.reserve(columns);
  for (std::size_t column = 0; column < columns; ++column) {
    const std::size_t from = column * length / columns;
    const std::size_t to = std::max(from + 1, (column + 1) * length / columns);
    const std::size_t step = std::max<std::size_t>(1, (to - from) / mostSamples);
    float low = 0, high = 0;
    for (const std::vector<float>& channel : data_->channels)
      for (std::size_t i = from; i < std::min(to, channel.size()); i += step) {
        if (!std::isfinite(channel[i])) continue;
        low = std::min(low, channel[i]);
        high = std::max(high, channel[i]);
      }
    const double x =
        place.x + place.width * static_cast<double>(column) / static_cast<double>(columns - 1);
    const auto y = [&](float level) {
      return place.midY() - place.height / 2 * std::clamp(level, -1.0f, 1.0f);
    };
    // Silence is a thin line.
    const double top = std::min(y(high), place.midY() - 0.4);
    if (column == 0)
      outline_.moveTo({x, top});
    else
      outline_.lineTo({x, top});
    below.push_back({x, std::max(y(low), place.midY() + 0.4)});
  }
  for (auto point = below.rbegin(); point != below.rend(); ++point) outline_.lineTo(*point);
  outline_.close();
  return outline_;
}

}  // namespace kestroui
