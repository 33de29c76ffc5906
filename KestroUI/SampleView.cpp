#include "KestroUI/SampleView.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace kestroui {

using platform::Color;
using platform::Rect;

namespace {

enum Part : std::size_t { loopStart, loopEnd, start, end, head };

const std::vector<KeyPart> partsOfASample = {{"loop start|loop begin|loop in"},
                                             {"loop end|loop out"},
                                             {"start|begin", true},
                                             {"end", true},
                                             {"position|playhead|head|cursor"}};

}  // namespace

SampleView::SampleView() : DisplayView(partsOfASample) {}

void SampleView::setData(std::shared_ptr<const platform::SampleData> data) {
  if (overview_.setData(std::move(data))) setNeedsDisplay();
}

bool SampleView::isMeasured(std::size_t part) const { return part == head; }

double SampleView::xOf(std::size_t part, double otherwise, Source source) const {
  const Rect place = picture();
  return place.x + place.width * amount(part, otherwise, source);
}

std::vector<ShapeControl::Handle> SampleView::pictureHandles() const {
  const Rect place = picture();
  std::vector<Handle> result;
  for (const std::size_t part : {start, end, loopStart, loopEnd}) {
    const auto index = valueOf(part);
    if (!index) continue;
    Handle handle;
    handle.x = index;
    // Those of the loop are held at the top, so that both can be reached where they meet.
    const bool loops = part == loopStart || part == loopEnd;
    handle.place = {xOf(part, 0, Source::set),
                    loops ? place.y + place.height * 0.14 : place.maxY() - place.height * 0.14};
    handle.travel.width = place.width;
    result.push_back(handle);
  }
  return result;
}

float SampleView::limited(std::size_t index, float value) const {
  for (const auto& [first, last] : {std::pair{start, end}, std::pair{loopStart, loopEnd}}) {
    const auto from = valueOf(first), to = valueOf(last);
    if (!from || !to) continue;
    if (index == *from) return std::min(value, this->value(*to));
    if (index == *to) return std::max(value, this->value(*from));
  }
  return value;
}

void SampleView::paintPicture(platform::Canvas& canvas) {
  const Rect place = picture();
  const Color accent = stateAccent();
  canvas.fillRect({place.x, place.midY() - 0.375, place.width, 0.75}, Theme::line.withAlpha(0.5f));
  const double from = xOf(start, 0, Source::live);
  const double to = std::max(from, xOf(end, 1, Source::live));
  const platform::Path& outline = overview_.outline(place);
  if (!outline.isEmpty()) {
    canvas.fillPath(outline, accent.withAlpha(accent.alpha * 0.22f));
    canvas.save();
    canvas.clip({from, place.y, to - from, place.height});
    canvas.fillPath(outline, accent.withAlpha(accent.alpha * 0.85f));
    canvas.restore();
  } else if (place.width > 60 && place.height > 30) {
    canvas.drawText("No sample", Theme::labelFont.withSize(std::min(11.0, place.height * 0.3)),
                    place, platform::TextAlignment::centre, Theme::textDim.withAlpha(0.6f));
  }
  canvas.fillRect({from, place.y, to - from, place.height}, accent.withAlpha(accent.alpha * 0.07f));
  for (const double x : {from, to}) canvas.fillRect({x - 0.75, place.y, 1.5, place.height}, accent);
  if (valueOf(loopStart) || valueOf(loopEnd)) {
    const double left = xOf(loopStart, 0, Source::live);
    const double right = std::max(left, xOf(loopEnd, 1, Source::live));
    const Color loop = colorOf(1);
    canvas.fillRect({left, place.y, right - left, 3}, loop.withAlpha(loop.alpha * 0.8f));
    for (const double x : {left, right})
      canvas.fillRect({x - 0.5, place.y, 1, place.height}, loop.withAlpha(loop.alpha * 0.8f));
  }
  if (const auto at = output(head)) {
    const auto [low, high] = range(head, 0, 1);
    const double share = high > low ? std::clamp((*at - low) / (high - low), 0.0, 1.0) : 0;
    canvas.fillRect({place.x + place.width * share - 0.5, place.y, 1, place.height}, Theme::white);
  }
}

void SampleView::paintHandle(platform::Canvas& canvas, const Handle& handle,
                             Plot::HandleState state) {
  const bool loops = handle.x == valueOf(loopStart) || handle.x == valueOf(loopEnd);
  if (!handle.x || !loops) return DisplayView::paintHandle(canvas, handle, state);
  Plot::paintHandle(canvas, handle.place, Plot::handleRadius(bounds().size()), colorOf(1), state);
}

}  // namespace kestroui
