#pragma once

#include <string>

#include "KestroUI/KestroControl.h"

namespace kestroui {

/// A light: dark at 0, fully lit at 1. Not touched.
class LED : public KestroControl {
 public:
  LED();

  void setValue(float value) override;
  bool canBecomeFirstResponder() const override { return false; }
  void paint(platform::Canvas& canvas) override;

 protected:
  platform::Accessibility::Role accessibilityRole() const override {
    return platform::Accessibility::Role::indicator;
  }
};

/// A text in the middle of its place. Not touched.
class SimpleLabel : public KestroControl {
 public:
  SimpleLabel();

  const std::string& text() const { return text_; }
  void setText(const std::string& text);

  bool canBecomeFirstResponder() const override { return false; }
  void paint(platform::Canvas& canvas) override;

 protected:
  platform::Accessibility::Role accessibilityRole() const override {
    return platform::Accessibility::Role::text;
  }
  std::string ownValueText() const override { return text_; }

 private:
  std::string text_;
};

}  // namespace kestroui
