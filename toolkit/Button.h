#pragma once

#include <string>

#include "platform/Image.h"
#include "toolkit/Control.h"

namespace toolkit {

/// A control with a title, a picture or both. Space and Return press it while it has the keyboard.
class Button : public Control {
 public:
  Button() = default;

  const std::string& title() const { return title_; }
  void setTitle(std::string title);
  const platform::Font& font() const { return font_; }
  void setFont(const platform::Font& font);
  platform::Color titleColor() const { return titleColor_; }
  void setTitleColor(platform::Color color);
  const platform::Image& image() const { return image_; }
  void setImage(platform::Image image);

  /// Off for a button that repeats in every row of a list, whose keys are the list's.
  void setTakesKeyboard(bool takes) { takesKeyboard_ = takes; }
  bool canBecomeFirstResponder() const override { return isEnabled() && takesKeyboard_; }
  bool keyPressed(const platform::KeyEvent& event) override;
  void firstResponderChanged() override { setNeedsDisplay(); }
  platform::Accessibility accessibility() const override;
  void paint(platform::Canvas& canvas) override;

 private:
  std::string title_;
  platform::Font font_;
  platform::Color titleColor_ = platform::Color::white();
  platform::Image image_;
  bool takesKeyboard_ = true;
};

}  // namespace toolkit
