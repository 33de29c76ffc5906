#include "toolkit/ImageView.h"

#include <utility>

namespace toolkit {

using platform::Canvas;
using platform::Color;
using platform::Image;

ImageView::ImageView() { setUserInteractionEnabled(false); }

void ImageView::setImage(Image image) {
  if (image == image_) return;
  image_ = std::move(image);
  setNeedsDisplay();
}

void ImageView::setTintColor(Color color) {
  if (color == tintColor_) return;
  tintColor_ = color;
  setNeedsDisplay();
}

void ImageView::paint(Canvas& canvas) { image_.draw(canvas, bounds(), tintColor_); }

}  // namespace toolkit
