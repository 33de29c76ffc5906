#include "toolkit/Layer.h"

#include <algorithm>
#include <utility>

#include "platform/Fatal.h"
#include "toolkit/View.h"

namespace toolkit {

using platform::Canvas;
using platform::Color;
using platform::fatal;
using platform::Paint;
using platform::Path;
using platform::Rect;
using platform::StrokeStyle;

Layer::~Layer() {
  removeFromSuperlayer();
  for (Layer* sublayer : sublayers_) sublayer->superlayer_ = nullptr;
}

void Layer::addSublayer(Layer& layer) {
  for (const Layer* above = this; above; above = above->superlayer_)
    if (above == &layer) fatal("A layer cannot be added below itself");
  if (layer.view_) fatal("A view's own layer cannot be a sublayer");
  if (layer.superlayer_ == this && sublayers_.back() == &layer) return;
  layer.removeFromSuperlayer();
  sublayers_.push_back(&layer);
  layer.superlayer_ = this;
  changed();
}

void Layer::removeFromSuperlayer() {
  if (!superlayer_) return;
  std::erase(superlayer_->sublayers_, this);
  std::exchange(superlayer_, nullptr)->changed();
}

void Layer::setFrame(const Rect& frame) {
  if (view_ || frame == frame_) return;
  frame_ = frame;
  changed();
}

void Layer::setHidden(bool hidden) {
  if (hidden == hidden_) return;
  hidden_ = hidden;
  changed();
}

void Layer::setBackgroundColor(Color color) {
  if (color == backgroundColor_) return;
  backgroundColor_ = color;
  changed();
}

void Layer::setBorderColor(Color color) {
  if (color == borderColor_) return;
  borderColor_ = color;
  changed();
}

void Layer::setBorderWidth(double width) {
  if (width == borderWidth_) return;
  borderWidth_ = width;
  changed();
}

void Layer::setCornerRadius(double radius) {
  if (radius == cornerRadius_) return;
  cornerRadius_ = radius;
  changed();
}

void Layer::changed() {
  const Layer* top = this;
  while (top->superlayer_) top = top->superlayer_;
  if (top->view_) top->view_->markNeeds(View::Need::paint);
}

void Layer::render(Canvas& canvas) const {
  if (hidden_) return;
  const Rect bounds{0, 0, frame_.width, frame_.height};
  if (!bounds.isEmpty() && backgroundColor_.alpha > 0)
    canvas.fillRoundedRect(bounds, cornerRadius_, backgroundColor_);
  renderContent(canvas);
  for (const Layer* sublayer : sublayers_) {
    if (sublayer->hidden_) continue;
    canvas.save();
    canvas.place({sublayer->frame_.origin()});
    sublayer->render(canvas);
    canvas.restore();
  }
  if (borderWidth_ > 0 && borderColor_.alpha > 0 && !bounds.isEmpty()) {
    const double half = borderWidth_ / 2;
    canvas.strokeRoundedRect(bounds.inset(half, half), std::max(0.0, cornerRadius_ - half),
                             borderWidth_, borderColor_);
  }
}

void GradientLayer::setColors(std::vector<Color> colors) {
  if (colors == colors_) return;
  colors_ = std::move(colors);
  changed();
}

void GradientLayer::renderContent(Canvas& canvas) const {
  const Rect bounds{0, 0, frame().width, frame().height};
  if (colors_.size() < 2 || bounds.isEmpty()) return;
  std::vector<Paint::Stop> stops;
  stops.reserve(colors_.size());
  for (std::size_t i = 0; i < colors_.size(); ++i)
    stops.push_back({static_cast<double>(i) / static_cast<double>(colors_.size() - 1), colors_[i]});
  const double x = bounds.midX();
  canvas.fillRoundedRect(bounds, cornerRadius(),
                         Paint({x, 0}, {x, bounds.height}, std::move(stops)));
}

void ShapeLayer::setPath(Path path) {
  if (path == path_) return;
  path_ = std::move(path);
  changed();
}

void ShapeLayer::setFillColor(Color color) {
  if (color == fillColor_) return;
  fillColor_ = color;
  changed();
}

void ShapeLayer::setStrokeColor(Color color) {
  if (color == strokeColor_) return;
  strokeColor_ = color;
  changed();
}

void ShapeLayer::setLineWidth(double width) {
  if (width == lineWidth_) return;
  lineWidth_ = width;
  changed();
}

void ShapeLayer::renderContent(Canvas& canvas) const {
  if (path_.isEmpty()) return;
  if (fillColor_.alpha > 0) canvas.fillPath(path_, fillColor_);
  if (strokeColor_.alpha > 0 && lineWidth_ > 0)
    canvas.strokePath(path_, {lineWidth_, StrokeStyle::Cap::round}, strokeColor_);
}

}  // namespace toolkit
