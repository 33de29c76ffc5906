#pragma once

#include "platform/Image.h"
#include "platform/View.h"

namespace platform {

/// Shows a picture as large as fits, centred. Not hit by touches.
class ImageView : public View {
 public:
  ImageView();

  const Image& image() const { return image_; }
  void setImage(Image image);
  /// The colour of template pictures.
  Color tintColor() const { return tintColor_; }
  void setTintColor(Color color);

  void paint(Canvas& canvas) override;

 private:
  Image image_;
  Color tintColor_ = Color::white();
};

}  // namespace platform
