#pragma once

#include <string>

#include "platform/View.h"

namespace platform {

/// One line of text, centred vertically, never outside its frame. Not hit by touches.
class Label : public View {
 public:
  Label();

  const std::string& text() const { return text_; }
  /// UTF-8. The same text again repaints nothing; so for every setter here.
  void setText(std::string text);
  const Font& font() const { return font_; }
  void setFont(const Font& font);
  Color textColor() const { return textColor_; }
  void setTextColor(Color color);
  TextAlignment textAlignment() const { return alignment_; }
  void setTextAlignment(TextAlignment alignment);

  Accessibility accessibility() const override { return {Accessibility::Role::text, text_}; }
  void paint(Canvas& canvas) override;

 private:
  std::string text_;
  Font font_;
  Color textColor_ = Color::white();
  TextAlignment alignment_ = TextAlignment::left;
};

}  // namespace platform
