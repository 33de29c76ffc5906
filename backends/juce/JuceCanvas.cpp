#include "backends/juce/JuceCanvas.h"

#include <algorithm>
#include <cmath>
#include <iterator>

#include "backends/juce/JuceInput.h"

namespace juce_backend {
namespace {

float toFloat(double value) { return static_cast<float>(value); }

int toInt(double value) { return static_cast<int>(std::lround(value)); }

}  // namespace

JuceCanvas::JuceCanvas(juce::Image& picture, double scale)
    : JuceCanvas(picture, scale, picture.getBounds()) {}

JuceCanvas::JuceCanvas(juce::Image& picture, double scale, juce::Rectangle<int> clip)
    : painter_(picture) {
  state_.placement.scale = scale;
  state_.clip = clip.getIntersection(picture.getBounds());
}

void JuceCanvas::save() { saved_.push_back(state_); }

void JuceCanvas::restore() {
  if (saved_.empty()) return;
  state_ = saved_.back();
  saved_.pop_back();
}

void JuceCanvas::place(const platform::Placement& placement) {
  state_.placement = placement.within(state_.placement);
}

void JuceCanvas::clip(const platform::Rect& rect) {
  const juce::Rectangle<float> exact = toPixels(rect);
  const auto area = juce::Rectangle<int>::leftTopRightBottom(
      toInt(exact.getX()), toInt(exact.getY()), toInt(exact.getRight()), toInt(exact.getBottom()));
  state_.clip = state_.clip.getIntersection(area);
}

juce::Rectangle<float> JuceCanvas::toPixels(const platform::Rect& rect) const {
  const platform::Point first = state_.placement.apply(rect.origin());
  const platform::Point last = state_.placement.apply(platform::Point{rect.maxX(), rect.maxY()});
  return juce::Rectangle<float>::leftTopRightBottom(toFloat(first.x), toFloat(first.y),
                                                    toFloat(last.x), toFloat(last.y));
}

juce::Rectangle<int> JuceCanvas::toWholePixels(const platform::Rect& rect) const {
  const juce::Rectangle<float> exact = toPixels(rect);
  const int left = toInt(exact.getX()), top = toInt(exact.getY());
  // What is thinner than a pixel still shows.
  return {left, top, juce::jmax(1, toInt(exact.getRight()) - left),
          juce::jmax(1, toInt(exact.getBottom()) - top)};
}

int JuceCanvas::toWholePixels(double width) const {
  return juce::jmax(1, toInt(width * pixelsPerPoint()));
}

bool JuceCanvas::intersectsClip(const platform::Rect& rect) const {
  return toPixels(rect).getSmallestIntegerContainer().expanded(1).intersects(state_.clip);
}

PixelSource JuceCanvas::source(const platform::Paint& paint) const {
  if (paint.stops.empty()) return PixelSource(toColour(paint.color));
  const platform::Point from = state_.placement.apply(paint.from);
  const platform::Point to = state_.placement.apply(paint.to);
  std::vector<std::pair<float, juce::Colour>> stops;
  for (const platform::Paint::Stop& stop : paint.stops)
    stops.emplace_back(toFloat(stop.position), toColour(stop.color));
  return PixelSource({toFloat(from.x), toFloat(from.y)}, {toFloat(to.x), toFloat(to.y)}, stops);
}

void JuceCanvas::fill(const juce::Path& path, const platform::Paint& paint) {
  PixelSource pixels = source(paint);
  painter_.fillPath(path, state_.clip, pixels);
}

void JuceCanvas::fillRect(const platform::Rect& rect, const platform::Paint& paint) {
  if (rect.isEmpty() || !intersectsClip(rect)) return;
  PixelSource pixels = source(paint);
  painter_.fillRect(toWholePixels(rect), state_.clip, pixels);
}

void JuceCanvas::fillRoundedRect(const platform::Rect& rect, double radius,
                                 const platform::Paint& paint) {
  if (rect.isEmpty() || !intersectsClip(rect)) return;
  const double pixelRadius = radius * pixelsPerPoint();
  if (pixelRadius < 0.5)
    fillRect(rect, paint);
  else
    fill(outline_.roundedRect(toWholePixels(rect).toFloat(), pixelRadius), paint);
}

void JuceCanvas::strokeRoundedRect(const platform::Rect& rect, double radius, double width,
                                   const platform::Paint& paint) {
  const platform::Rect outside = rect.inset(-width / 2, -width / 2);
  if (outside.isEmpty() || width <= 0 || !intersectsClip(outside)) return;
  // Whole pixels keep all four sides equally thick.
  const int thickness = toWholePixels(width);
  const double pixelRadius = radius > 0 ? radius * pixelsPerPoint() + thickness / 2.0 : 0;
  fill(outline_.roundedFrame(toWholePixels(outside).toFloat(), pixelRadius, thickness), paint);
}

void JuceCanvas::fillEllipse(const platform::Rect& rect, const platform::Paint& paint) {
  if (rect.isEmpty() || !intersectsClip(rect)) return;
  fill(outline_.ellipse(toPixels(rect)), paint);
}

void JuceCanvas::fillPath(const platform::Path& path, const platform::Paint& paint) {
  if (path.isEmpty() || !intersectsClip(path.bounds())) return;
  fill(outline_.filled(path, state_.placement), paint);
}

bool JuceCanvas::strokeStraightLine(const platform::Path& path, double width,
                                    const platform::Paint& paint) {
  using Verb = platform::Path::Verb;
  if (path.verbs().size() != 2 || path.verbs()[0] != Verb::move || path.verbs()[1] != Verb::line)
    return false;
  const platform::Rect bounds = path.bounds();
  const bool isLevel = bounds.height == 0;
  if (isLevel == (bounds.width == 0)) return false;
  const int thickness = toWholePixels(width);
  const juce::Rectangle<float> line = toPixels(bounds);
  const int left = toInt(isLevel ? line.getX() : line.getX() - thickness / 2.0);
  const int top = toInt(isLevel ? line.getY() - thickness / 2.0 : line.getY());
  PixelSource pixels = source(paint);
  painter_.fillRect({left, top, isLevel ? toInt(line.getRight()) - left : thickness,
                     isLevel ? thickness : toInt(line.getBottom()) - top},
                    state_.clip, pixels);
  return true;
}

void JuceCanvas::strokePath(const platform::Path& path, const platform::StrokeStyle& style,
                            const platform::Paint& paint) {
  if (path.isEmpty() || style.width <= 0 ||
      !intersectsClip(path.bounds().inset(-style.width, -style.width)))
    return;
  // A thick line shows its round caps; a thin one shows when it is not on whole pixels.
  const double pixelWidth = style.width * pixelsPerPoint();
  if ((pixelWidth < 2.5 || style.cap == platform::StrokeStyle::Cap::butt) &&
      strokeStraightLine(path, style.width, paint))
    return;
  fill(outline_.stroked(path, state_.placement, pixelWidth, style.cap), paint);
}

}  // namespace juce_backend
