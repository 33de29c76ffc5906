#pragma once

#include "KestroUI/KestroButton.h"
#include "platform/Path.h"

namespace kestroui {

/// A star as a button: filled while selected. Its owner selects it.
class StarButton : public KestroButton {
 public:
  StarButton();

  void paint(platform::Canvas& canvas) override;

 private:
  platform::Path path_;
};

}  // namespace kestroui
