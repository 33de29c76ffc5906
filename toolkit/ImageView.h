#pragma once

#include "platform/Image.h"
#include "toolkit/View.h"

namespace toolkit {

/// Shows a picture as large as fits, centred. Not hit by touches.
class ImageView : public View {
 public:
  ImageView();

  const platform::Image& image() const { return image_; }
  void setImage(platform::Image image);
  /// The colour of template pictures.
  platform::Color tintColor() const { return tintColor_; }
  void setTintColor(platform::Color color);

  void paint(platform::Canvas& canvas) override;

 private:
  platform::Image image_;
  platform::Color tintColor_ = platform::Color::white();
};

}  // namespace toolkit
