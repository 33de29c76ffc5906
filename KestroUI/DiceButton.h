#pragma once

#include "KestroUI/KestroButton.h"

namespace kestroui {

/// A die as a button, for what happens at random. Each press throws another number of pips.
class DiceButton : public KestroButton {
 public:
  DiceButton() = default;

  void setHighlighted(bool highlighted) override;
  void paint(platform::Canvas& canvas) override;

 private:
  int pips_ = 5;
};

}  // namespace kestroui
