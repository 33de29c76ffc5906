#pragma once

#include "KestroUI/Container.h"
#include "KestroUI/LED.h"

namespace kestroui {

/// A light with its title; it follows the live value where there is one.
class LEDViewContainer : public Container {
 public:
  LEDViewContainer();

  LED& led() { return led_; }

  void updateModulation() override;

 private:
  LED led_;
};

}  // namespace kestroui
