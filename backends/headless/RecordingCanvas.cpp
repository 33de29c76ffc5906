#include "backends/headless/RecordingCanvas.h"

#include <algorithm>

#include "foundation/UnicodeText.h"

namespace headless {

using platform::Color;
using platform::Paint;
using platform::Rect;

namespace {

Color firstColor(const Paint& paint) {
  return paint.stops.empty() ? paint.color : paint.stops.front().color;
}

}  // namespace

std::size_t RecordingCanvas::count(Operation operation) const {
  return static_cast<std::size_t>(std::count_if(
      calls_.begin(), calls_.end(), [=](const Call& call) { return call.operation == operation; }));
}

std::vector<std::string> RecordingCanvas::texts() const {
  std::vector<std::string> texts;
  for (const Call& call : calls_)
    if (call.operation == Operation::drawText) texts.push_back(call.text);
  return texts;
}

void RecordingCanvas::clear() { *this = RecordingCanvas(); }

void RecordingCanvas::save() {
  calls_.push_back({Operation::save, {}, {}, {}});
  saved_.push_back(state_);
  ++depth_;
}

void RecordingCanvas::restore() {
  calls_.push_back({Operation::restore, {}, {}, {}});
  --depth_;
  if (saved_.empty()) return;
  state_ = saved_.back();
  saved_.pop_back();
}

void RecordingCanvas::place(const platform::Placement& placement) {
  calls_.push_back({Operation::place, {}, {}, {}});
  state_.placement = placement.within(state_.placement);
}

void RecordingCanvas::clip(const Rect& rect) {
  const Rect area = state_.placement.apply(rect);
  calls_.push_back({Operation::clip, area, {}, {}});
  state_.clip = state_.clip.intersection(area);
}

void RecordingCanvas::fillRect(const Rect& rect, const Paint& paint) {
  painted(Operation::fillRect, rect, firstColor(paint));
}

void RecordingCanvas::fillRoundedRect(const Rect& rect, double, const Paint& paint) {
  painted(Operation::fillRoundedRect, rect, firstColor(paint));
}

void RecordingCanvas::strokeRoundedRect(const Rect& rect, double, double, const Paint& paint) {
  painted(Operation::strokeRoundedRect, rect, firstColor(paint));
}

void RecordingCanvas::fillEllipse(const Rect& rect, const Paint& paint) {
  painted(Operation::fillEllipse, rect, firstColor(paint));
}

void RecordingCanvas::fillPath(const platform::Path& path, const Paint& paint) {
  painted(Operation::fillPath, path.bounds(), firstColor(paint));
}

void RecordingCanvas::strokePath(const platform::Path& path, const platform::StrokeStyle& style,
                                 const Paint& paint) {
  painted(Operation::strokePath, path.bounds().inset(-style.width / 2, -style.width / 2),
          firstColor(paint));
}

void RecordingCanvas::drawText(std::string_view text, const platform::Font&, const Rect& rect,
                               platform::TextAlignment, Color color, double) {
  painted(Operation::drawText, rect, color, text);
}

double RecordingCanvas::widthOfText(std::string_view text, const platform::Font& font) {
  return static_cast<double>(foundation::countCodePoints(text)) * font.pointSize * 0.5;
}

void RecordingCanvas::painted(Operation operation, const Rect& rect, Color color,
                              std::string_view text) {
  const Rect area = state_.placement.apply(rect);
  calls_.push_back({operation, area, color, std::string(text)});
  paintedBounds_ = paintedBounds_.unionWith(area.intersection(state_.clip));
}

}  // namespace headless
