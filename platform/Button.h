#pragma once

#include <string>

#include "platform/Control.h"
#include "platform/Image.h"

namespace platform {

/// A control with a title, a picture or both. Space and Return press it while it has the keyboard.
class Button : public Control {
 public:
  Button() = default;

  const std::string& title() const { return title_; }
  void setTitle(std::string title);
  const Font& font() const { return font_; }
  void setFont(const Font& font);
  Color titleColor() const { return titleColor_; }
  void setTitleColor(Color color);
  const Image& image() const { return image_; }
  void setImage(Image image);

  bool canBecomeFirstResponder() const override { return isEnabled(); }
  bool keyPressed(const KeyEvent& event) override;
  void firstResponderChanged() override { setNeedsDisplay(); }
  Accessibility accessibility() const override;
  void paint(Canvas& canvas) override;

 private:
  std::string title_;
  Font font_;
  Color titleColor_ = Color::white();
  Image image_;
};

}  // namespace platform
