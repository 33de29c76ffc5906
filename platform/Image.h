#pragma once

#include <functional>
#include <memory>
#include <utility>

#include "platform/Canvas.h"

namespace platform {

/// A picture that is drawn, not stored as pixels, so it is sharp at any scale. Copies share one
/// drawing.
class Image {
 public:
  /// Paints the picture into (0, 0, width, height); `tint` is the colour for template images.
  using Drawing = std::function<void(Canvas&, Color tint)>;

  Image() = default;
  Image(Size size, Drawing drawing)
      : size_(size), drawing_(std::make_shared<const Drawing>(std::move(drawing))) {}

  bool isEmpty() const { return !drawing_; }
  /// Natural size in points: only its proportions matter when it is fitted into a rectangle.
  Size size() const { return size_; }

  /// Paints the picture as large as fits into `rect`, centred, proportions kept.
  void draw(Canvas& canvas, const Rect& rect, Color tint = Color::white()) const {
    if (!drawing_ || rect.isEmpty() || size_.width <= 0 || size_.height <= 0) return;
    const double scale = std::min(rect.width / size_.width, rect.height / size_.height);
    canvas.save();
    canvas.place(
        {{rect.midX() - size_.width * scale / 2, rect.midY() - size_.height * scale / 2}, scale});
    (*drawing_)(canvas, tint);
    canvas.restore();
  }

  friend bool operator==(const Image& a, const Image& b) { return a.drawing_ == b.drawing_; }

 private:
  Size size_;
  std::shared_ptr<const Drawing> drawing_;
};

}  // namespace platform
