#pragma once

#include "KestroUI/KestroButton.h"

namespace kestroui {

/// A picture as a button; with a title, the picture is at the left and the title beside it.
class ImageButton : public KestroButton {
 public:
  ImageButton() = default;

  void paint(platform::Canvas& canvas) override;
};

}  // namespace kestroui
