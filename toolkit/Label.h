#pragma once

#include <string>

#include "toolkit/View.h"

namespace toolkit {

/// One line of text, centred vertically, never outside its frame. Not hit by touches.
class Label : public View {
 public:
  Label();

  const std::string& text() const { return text_; }
  /// UTF-8. The same text again repaints nothing; so for every setter here.
  void setText(std::string text);
  const platform::Font& font() const { return font_; }
  void setFont(const platform::Font& font);
  platform::Color textColor() const { return textColor_; }
  void setTextColor(platform::Color color);
  platform::TextAlignment textAlignment() const { return alignment_; }
  void setTextAlignment(platform::TextAlignment alignment);

  /// How much smaller a text is set before it is cut with an ellipsis: 0.7 at first, 1 for not at all.
  void setMinimumScale(double scale);

  platform::Accessibility accessibility() const override {
    return {platform::Accessibility::Role::text, text_};
  }
  void paint(platform::Canvas& canvas) override;

 private:
  std::string text_;
  platform::Font font_;
  platform::Color textColor_ = platform::Color::white();
  platform::TextAlignment alignment_ = platform::TextAlignment::left;
  double minimumScale_ = 0.7;
};

}  // namespace toolkit
