#pragma once

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

}  // namespace kestroui
