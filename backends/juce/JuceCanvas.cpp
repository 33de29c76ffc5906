#include "backends/juce/JuceCanvas.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace juce_backend {
namespace {

float toFloat(double value) { return static_cast<float>(value); }

int toInt(double value) { return static_cast<int>(std::lround(value)); }

juce::Colour toColour(platform::Color color, float alpha) {
  return juce::Colour(color.withAlpha(color.alpha * alpha).argb());
}

void addRoundedRect(juce::Path& path, juce::Rectangle<float> area, double radius) {
  path.addRoundedRectangle(area, juce::jmin(toFloat(radius), area.getWidth() / 2,
                                            area.getHeight() / 2));
}

}  // namespace

JuceCanvas::JuceCanvas(juce::Graphics& graphics, double scale)
    : context_(graphics.getInternalContext()) {
  state_.transform = platform::AffineTransform::scale(scale, scale);
  state_.clip = graphics.getClipBounds();
  context_.saveState();
}

JuceCanvas::~JuceCanvas() {
  while (!saved_.empty()) restore();
  context_.restoreState();
}

void JuceCanvas::save() {
  saved_.push_back(state_);
  state_.isJuceStateSaved = false;
}

void JuceCanvas::restore() {
  if (saved_.empty()) return;
  if (state_.isJuceStateSaved) context_.restoreState();
  state_ = saved_.back();
  saved_.pop_back();
}

void JuceCanvas::concat(const platform::AffineTransform& transform) {
  state_.transform = transform.followedBy(state_.transform);
}

void JuceCanvas::clip(const platform::Rect& rect) {
  // A clip under a rotation is the box around it, which is all that views ask for.
  const juce::Rectangle<float> exact = toPixels(rect);
  const auto area = juce::Rectangle<int>::leftTopRightBottom(
      toInt(exact.getX()), toInt(exact.getY()), toInt(exact.getRight()), toInt(exact.getBottom()));
  if (area.contains(state_.clip)) return;
  if (!saved_.empty() && !state_.isJuceStateSaved) {
    context_.saveState();
    state_.isJuceStateSaved = true;
  }
  state_.clip = state_.clip.getIntersection(area);
  context_.clipToRectangle(state_.clip);
}

void JuceCanvas::multiplyAlpha(float alpha) { state_.alpha *= alpha; }

bool JuceCanvas::isUpright() const {
  const platform::AffineTransform& t = state_.transform;
  return t.b == 0 && t.c == 0;
}

double JuceCanvas::pixelsPerPoint() const {
  const platform::AffineTransform& t = state_.transform;
  return std::sqrt(std::fabs(t.a * t.d - t.b * t.c));
}

juce::Rectangle<float> JuceCanvas::toPixels(const platform::Rect& rect) const {
  const platform::AffineTransform& t = state_.transform;
  const platform::Point first = t.apply({rect.minX(), rect.minY()});
  const platform::Point last = t.apply({rect.maxX(), rect.maxY()});
  const juce::Rectangle<float> area(
      juce::Point<float>(toFloat(first.x), toFloat(first.y)),
      juce::Point<float>(toFloat(last.x), toFloat(last.y)));
  if (isUpright()) return area;
  const platform::Point right = t.apply({rect.maxX(), rect.minY()});
  const platform::Point left = t.apply({rect.minX(), rect.maxY()});
  return area.getUnion({juce::Point<float>(toFloat(right.x), toFloat(right.y)),
                        juce::Point<float>(toFloat(left.x), toFloat(left.y))});
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

void JuceCanvas::setFill(const platform::Paint& paint) {
  if (paint.stops.empty()) {
    context_.setFill(toColour(paint.color, state_.alpha));
    return;
  }
  const platform::Point from = state_.transform.apply(paint.from);
  const platform::Point to = state_.transform.apply(paint.to);
  juce::ColourGradient gradient;
  gradient.point1 = {toFloat(from.x), toFloat(from.y)};
  gradient.point2 = {toFloat(to.x), toFloat(to.y)};
  gradient.isRadial = false;
  // JUCE wants a colour at both ends.
  gradient.addColour(0, toColour(paint.stops.front().color, state_.alpha));
  for (const platform::Paint::Stop& stop : paint.stops)
    if (stop.position > 0 && stop.position < 1)
      gradient.addColour(stop.position, toColour(stop.color, state_.alpha));
  gradient.addColour(1, toColour(paint.stops.back().color, state_.alpha));
  context_.setFill(juce::FillType(std::move(gradient)));
}

// JUCE works out the colour of a gradient for each pixel, which makes the panels the most expensive
// part of an editor. In 8 bits a soft gradient has few colours, and plain bands of them are cheap.
bool JuceCanvas::fillBands(juce::Rectangle<int> area, const platform::Paint& paint) {
  if (paint.stops.empty() || paint.from.x != paint.to.x || !isUpright()) return false;
  const double from = state_.transform.apply(paint.from).y;
  const double length = state_.transform.apply(paint.to).y - from;
  if (length == 0) return false;
  const juce::Rectangle<int> seen = area.getIntersection(state_.clip);

  const auto colourAt = [&](int row) {
    const double position = (row + 0.5 - from) / length;
    auto next = std::find_if(paint.stops.begin(), paint.stops.end(),
                             [&](const auto& stop) { return stop.position > position; });
    if (next == paint.stops.begin()) return toColour(next->color, state_.alpha);
    if (next == paint.stops.end()) return toColour(std::prev(next)->color, state_.alpha);
    const auto before = std::prev(next);
    const double share = (position - before->position) / (next->position - before->position);
    return toColour(before->color, state_.alpha)
        .interpolatedWith(toColour(next->color, state_.alpha), toFloat(share));
  };
  for (int top = seen.getY(); top < seen.getBottom();) {
    const juce::Colour colour = colourAt(top);
    int bottom = top + 1;
    while (bottom < seen.getBottom() && colourAt(bottom) == colour) ++bottom;
    if (!colour.isTransparent()) {
      context_.setFill(colour);
      context_.fillRect(seen.withTop(top).withBottom(bottom), false);
    }
    top = bottom;
  }
  return true;
}

juce::Path& JuceCanvas::scratchPath(const platform::Path& path) {
  scratch_.clear();
  const platform::Point* next = path.points().data();
  const auto take = [&] {
    const platform::Point p = state_.transform.apply(*next++);
    return juce::Point<float>(toFloat(p.x), toFloat(p.y));
  };
  for (const platform::Path::Verb verb : path.verbs()) {
    switch (verb) {
      case platform::Path::Verb::move:
        scratch_.startNewSubPath(take());
        break;
      case platform::Path::Verb::line:
        scratch_.lineTo(take());
        break;
      case platform::Path::Verb::quad: {
        const auto control = take();
        scratch_.quadraticTo(control, take());
        break;
      }
      case platform::Path::Verb::cubic: {
        const auto control1 = take();
        const auto control2 = take();
        scratch_.cubicTo(control1, control2, take());
        break;
      }
      case platform::Path::Verb::close:
        scratch_.closeSubPath();
        break;
    }
  }
  return scratch_;
}

void JuceCanvas::fillRect(const platform::Rect& rect, const platform::Paint& paint) {
  if (rect.isEmpty() || !intersectsClip(rect)) return;
  if (!isUpright()) {
    platform::Path path;
    path.addRect(rect);
    fillPath(path, paint);
    return;
  }
  const juce::Rectangle<int> area = toWholePixels(rect);
  if (fillBands(area, paint)) return;
  setFill(paint);
  context_.fillRect(area, false);
}

void JuceCanvas::fillRoundedRect(const platform::Rect& rect, double radius,
                                 const platform::Paint& paint) {
  if (rect.isEmpty() || !intersectsClip(rect)) return;
  if (!isUpright()) {
    platform::Path path;
    path.addRoundedRect(rect, radius);
    fillPath(path, paint);
    return;
  }
  const double pixelRadius = radius * pixelsPerPoint();
  if (pixelRadius < 0.5) {
    fillRect(rect, paint);
    return;
  }
  const juce::Rectangle<int> area = toWholePixels(rect);
  scratch_.clear();
  addRoundedRect(scratch_, area.toFloat(), pixelRadius);
  const int corner = static_cast<int>(std::ceil(pixelRadius));
  const juce::Rectangle<int> middle = area.reduced(0, corner);
  if (!middle.isEmpty() && fillBands(middle, paint)) {
    // What is left are the strips with the corners.
    setFill(paint);
    for (const juce::Rectangle<int>& strip :
         {area.withHeight(corner), area.withTop(middle.getBottom())}) {
      context_.saveState();
      if (context_.clipToRectangle(strip)) context_.fillPath(scratch_, {});
      context_.restoreState();
    }
    return;
  }
  setFill(paint);
  context_.fillPath(scratch_, {});
}

void JuceCanvas::strokeRoundedRect(const platform::Rect& rect, double radius, double width,
                                   const platform::Paint& paint) {
  const platform::Rect outside = rect.inset(-width / 2, -width / 2);
  if (outside.isEmpty() || width <= 0 || !intersectsClip(outside)) return;
  if (!isUpright()) {
    platform::Path path;
    path.addRoundedRect(rect, radius);
    strokePath(path, {width}, paint);
    return;
  }
  // The ring between two rounded rectangles; whole pixels keep all four sides equally thick.
  const int thickness = toWholePixels(width);
  const juce::Rectangle<int> outer = toWholePixels(outside);
  const juce::Rectangle<int> inner = outer.reduced(thickness);
  const double pixelRadius = radius > 0 ? radius * pixelsPerPoint() + thickness / 2.0 : 0;
  scratch_.clear();
  scratch_.setUsingNonZeroWinding(false);
  addRoundedRect(scratch_, outer.toFloat(), pixelRadius);
  if (!inner.isEmpty())
    addRoundedRect(scratch_, inner.toFloat(), juce::jmax(0.0, pixelRadius - thickness));
  setFill(paint);
  context_.fillPath(scratch_, {});
  scratch_.setUsingNonZeroWinding(true);
}

void JuceCanvas::fillEllipse(const platform::Rect& rect, const platform::Paint& paint) {
  if (rect.isEmpty() || !intersectsClip(rect)) return;
  if (!isUpright()) {
    platform::Path path;
    path.addEllipse(rect);
    fillPath(path, paint);
    return;
  }
  scratch_.clear();
  scratch_.addEllipse(toPixels(rect));
  setFill(paint);
  context_.fillPath(scratch_, {});
}

void JuceCanvas::fillPath(const platform::Path& path, const platform::Paint& paint) {
  if (path.isEmpty() || !intersectsClip(path.bounds())) return;
  setFill(paint);
  context_.fillPath(scratchPath(path), {});
}

bool JuceCanvas::strokeStraightLine(const platform::Path& path, double width,
                                    const platform::Paint& paint) {
  using Verb = platform::Path::Verb;
  if (path.verbs().size() != 2 || path.verbs()[0] != Verb::move || path.verbs()[1] != Verb::line)
    return false;
  const platform::Rect bounds = path.bounds();
  const bool isLevel = bounds.height == 0;
  if (!isUpright() || isLevel == (bounds.width == 0)) return false;
  const int thickness = toWholePixels(width);
  const juce::Rectangle<float> line = toPixels(bounds);
  setFill(paint);
  if (isLevel) {
    const int left = toInt(line.getX());
    const int top = toInt(line.getY() - thickness / 2.0);
    context_.fillRect(
        juce::Rectangle<int>(left, top, toInt(line.getRight()) - left, thickness), false);
  } else {
    const int left = toInt(line.getX() - thickness / 2.0);
    const int top = toInt(line.getY());
    context_.fillRect(
        juce::Rectangle<int>(left, top, thickness, toInt(line.getBottom()) - top), false);
  }
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
  const juce::PathStrokeType stroke(toFloat(pixelWidth), juce::PathStrokeType::curved,
                                    style.cap == platform::StrokeStyle::Cap::round
                                        ? juce::PathStrokeType::rounded
                                        : juce::PathStrokeType::butt);
  juce::Path outline;
  stroke.createStrokedPath(outline, scratchPath(path));
  setFill(paint);
  context_.fillPath(outline, {});
}

}  // namespace juce_backend
