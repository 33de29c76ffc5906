#include "KestroUI/OscilloscopeView.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace kestroui {

using platform::Color;
using platform::Rect;

namespace {

enum Part : std::size_t { zoom };

const std::vector<KeyPart> partsOfAScope = {{"zoom|time|scope|window|length", true}};

// The shortest window is this many halvings of the longest.
constexpr double halvings = 5;
constexpr std::size_t minWindow = 32;

/// Where a picture of `length` samples begins: at the first rise through zero that leaves room
/// for it, else as late as possible.
std::size_t risingEdge(const std::vector<float>& samples, std::size_t length) {
  const std::size_t last = samples.size() - length;
  for (std::size_t i = 1; i <= last; ++i)
    if (samples[i - 1] < 0 && samples[i] >= 0) return i;
  return last;
}

}  // namespace

OscilloscopeView::OscilloscopeView() : DisplayView(partsOfAScope) {}

void OscilloscopeView::setBuffers(const std::vector<const platform::LiveBuffer*>& buffers) {
  traces_.clear();
  for (const platform::LiveBuffer* buffer : buffers)
    if (buffer) traces_.push_back({buffer, 0, {}});
  setNeedsDisplay();
  read();
}

void OscilloscopeView::read() {
  for (Trace& trace : traces_) {
    const std::uint64_t written = trace.buffer->written();
    if (written == trace.written) continue;
    trace.written = written;
    incoming_.resize(longest);
    incoming_.resize(trace.buffer->newest(incoming_));
    for (float& sample : incoming_)
      if (!std::isfinite(sample)) sample = 0;
    // Silence goes on unseen.
    if (incoming_ == trace.samples) continue;
    std::swap(trace.samples, incoming_);
    setNeedsDisplay();
  }
}

std::vector<ShapeControl::Handle> OscilloscopeView::pictureHandles() const {
  if (!valueOf(zoom)) return {};
  Handle handle;
  handle.x = valueOf(zoom);
  handle.place = picture().centre();
  handle.travel.width = std::max(120.0, picture().width);
  return {handle};
}

// The whole face is the handle.
void OscilloscopeView::paintHandle(platform::Canvas& canvas, const Handle& handle,
                                   Plot::HandleState state) {
  if (handle.x != valueOf(zoom)) DisplayView::paintHandle(canvas, handle, state);
}

std::size_t OscilloscopeView::window(const Trace& trace) const {
  const double share = amount(zoom, 1, Source::live);
  // Half of what there is at most, so that a rise through zero can be looked for in the rest.
  const auto limit = trace.samples.size() / 2;
  const auto wanted = static_cast<std::size_t>(0.5 * static_cast<double>(longest) *
                                               std::exp2(halvings * (share - 1)));
  return std::min(limit, std::max(wanted, minWindow));
}

void OscilloscopeView::paintPicture(platform::Canvas& canvas) {
  const Rect place = picture();
  const std::size_t count = std::max<std::size_t>(traces_.size(), 1);
  // Two lie over each other, more would only hide each other.
  const std::size_t lanes = count > 2 ? count : 1;
  std::vector<double> lines;
  for (std::size_t lane = 0; lane < lanes; ++lane)
    lines.push_back((static_cast<double>(lane) + 0.5) / static_cast<double>(lanes));
  Plot::paintGrid(canvas, place, {0.25, 0.5, 0.75}, lines, 0.4f);
  const double height = place.height / static_cast<double>(lanes);
  for (std::size_t i = traces_.size(); i-- > 0;) {
    const double lane = lanes > 1 ? static_cast<double>(i) : 0;
    paintTrace(canvas, traces_[i], {place.x, place.y + height * lane, place.width, height},
               colorOf(i));
  }
}

void OscilloscopeView::paintTrace(platform::Canvas& canvas, const Trace& trace, const Rect& place,
                                  Color color) {
  const std::size_t length = window(trace);
  path_.clear();
  if (length < 2) {
    path_.moveTo({place.x, place.midY()});
    path_.lineTo({place.maxX(), place.midY()});
    canvas.strokePath(path_, {1.25}, color.withAlpha(color.alpha * 0.5f));
    return;
  }
  const std::size_t from = risingEdge(trace.samples, length);
  const auto columns = static_cast<std::size_t>(std::clamp(place.width / 2, 8.0, 200.0));
  const auto y = [&](float sample) {
    return place.midY() - place.height * 0.47 * std::clamp(sample, -1.0f, 1.0f);
  };
  if (length <= columns * 2) {
    for (std::size_t i = 0; i < length; ++i) {
      const double x =
          place.x + place.width * static_cast<double>(i) / static_cast<double>(length - 1);
      const platform::Point point{x, y(trace.samples[from + i])};
      if (i == 0)
        path_.moveTo(point);
      else
        path_.lineTo(point);
    }
    canvas.strokePath(path_, {1.5}, color);
    return;
  }
  // More samples than columns: what each column spans, as one outline.
  std::vector<platform::Point> below;
  below.reserve(columns);
  for (std::size_t column = 0; column < columns; ++column) {
    const auto first =
        trace.samples.begin() + static_cast<std::ptrdiff_t>(from + column * length / columns);
    const auto last =
        trace.samples.begin() +
        static_cast<std::ptrdiff_t>(from + std::min(length, (column + 1) * length / columns + 1));
    const auto [low, high] = std::minmax_element(first, last);
    const double x =
        place.x + place.width * static_cast<double>(column) / static_cast<double>(columns - 1);
    const platform::Point top{x, y(*high) - 0.7};
    if (column == 0)
      path_.moveTo(top);
    else
      path_.lineTo(top);
    below.push_back({x, y(*low) + 0.7});
  }
  for (auto point = below.rbegin(); point != below.rend(); ++point) path_.lineTo(*point);
  path_.close();
  canvas.fillPath(path_, color);
}

}  // namespace kestroui
