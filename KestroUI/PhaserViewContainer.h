#pragma once

#include "KestroUI/DisplayContainer.h"
#include "KestroUI/PhaserView.h"

namespace kestroui {

/// A phaser: its frequency and feedback, and by what their keys say its depth and stages.
class PhaserViewContainer : public DisplayContainer {
 public:
  PhaserViewContainer() { setDisplay(view_); }

 private:
  PhaserView view_;
};

}  // namespace kestroui
