#include "KestroUI/DoubleFilterView.h"

namespace kestroui {

DoubleFilterView::DoubleFilterView() {
  setValueCount(4);
  setValue(lowPassFrequency, 0.8f);
  setValue(hiPassFrequency, 0.2f);
}

std::vector<ShapeControl::Handle> DoubleFilterView::handles() const {
  std::vector<Handle> result;
  if (existing(lowPassFrequency))
    result.push_back(plotHandle(lowPassFrequency, existing(lowPassResonance)));
  if (existing(hiPassFrequency))
    result.push_back(plotHandle(hiPassFrequency, existing(hiPassResonance)));
  const platform::Rect area = plot();
  if (existing(lowPassGain)) {
    result.push_back(plotHandle(std::nullopt, lowPassGain));
    result.back().place.x = area.x;
  }
  if (existing(hiPassGain)) {
    result.push_back(plotHandle(std::nullopt, hiPassGain));
    result.back().place.x = area.maxX();
  }
  return result;
}

double DoubleFilterView::plainMagnitude(double hertz) const {
  const auto ratio = [&](Index index) {
    return hertz / Plot::hertzAt(liveShare(index).value_or(share(index)));
  };
  const auto quality = [&](Index index) {
    return PlainFilter::quality(liveShare(index).value_or(share(index)));
  };
  double result = 0;
  if (existing(lowPassFrequency))
    result += PlainFilter::lowPass(ratio(lowPassFrequency), quality(lowPassResonance));
  if (existing(hiPassFrequency))
    result += PlainFilter::highPass(ratio(hiPassFrequency), quality(hiPassResonance));
  return result;
}

void DoubleFilterView::paintHandle(platform::Canvas& canvas, const Handle& handle,
                                   Plot::HandleState state) {
  if (handle.x) return ResponseView::paintHandle(canvas, handle, state);
  const double radius = Plot::handleRadius(bounds().size());
  const double length = state == Plot::HandleState::resting ? radius * 1.6 : radius * 2.2;
  canvas.fillRoundedRect(
      {handle.place.x - length / 2, handle.place.y - radius * 0.35, length, radius * 0.7},
      radius * 0.35, state == Plot::HandleState::resting ? stateAccent() : Theme::white);
}

}  // namespace kestroui
