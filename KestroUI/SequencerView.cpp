#include "KestroUI/SequencerView.h"

#include <algorithm>

namespace kestroui {

using platform::Rect;

void SequencerView::setPlayhead(std::optional<float> step) {
  if (step && !(*step >= 0 && *step < static_cast<float>(valueCount()))) step = std::nullopt;
  if (step == playhead_) return;
  playhead_ = step;
  setNeedsDisplay();
}

Rect SequencerView::column(std::size_t index) const {
  const Rect area = plot();
  const double width = area.width / static_cast<double>(std::max<std::size_t>(1, valueCount()));
  return {area.x + width * static_cast<double>(index), area.y, width, area.height};
}

std::vector<ShapeControl::Handle> SequencerView::handles() const {
  std::vector<Handle> result;
  result.reserve(valueCount());
  for (std::size_t i = 0; i < valueCount(); ++i) {
    const Rect place = column(i);
    result.push_back(
        {std::nullopt, i, {place.midX(), place.maxY() - place.height * share(i)}, place.size()});
  }
  return result;
}

std::optional<std::size_t> SequencerView::handleAt(platform::Point location) const {
  if (valueCount() == 0) return std::nullopt;
  const Rect area = plot();
  const double share = area.width > 0 ? (location.x - area.x) / area.width : 0;
  if (std::isnan(share)) return std::nullopt;
  const double last = static_cast<double>(valueCount() - 1);
  return static_cast<std::size_t>(std::clamp(share * static_cast<double>(valueCount()), 0.0, last));
}

bool SequencerView::plays(std::size_t index) const {
  return playhead_ && static_cast<std::size_t>(*playhead_) == index;
}

void SequencerView::paintColumns(platform::Canvas& canvas, const Rect& plot) const {
  const std::optional<std::size_t> active = activeHandle();
  const auto count = static_cast<double>(valueCount());
  if (count > 0 && plot.width / count >= 4)
    for (std::size_t i = 0; i < valueCount(); ++i) {
      const Rect place = column(i);
      const double gap = std::min(1.5, place.width * 0.12);
      const bool isEvenGroup = (i / 4) % 2 == 0;
      const float strength = plays(i) ? 0.9f : active == i ? 0.75f : isEvenGroup ? 0.5f : 0.32f;
      canvas.fillRoundedRect(place.inset(gap, 0), 1.5, Theme::surface.withAlpha(strength));
    }
  if (plot.height >= 20) Plot::paintGrid(canvas, plot, {}, {valueCount() ? origin(0) : 0}, 0.8f);
}

}  // namespace kestroui
