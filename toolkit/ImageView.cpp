#include "platform/ImageView.h"

#include <utility>

namespace platform {

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

}  // namespace platform
