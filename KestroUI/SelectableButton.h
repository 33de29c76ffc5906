#pragma once

#include "KestroUI/KestroButton.h"

namespace kestroui {

/// A tab: a title that is underlined while selected. Its owner selects it.
class SelectableButton : public KestroButton {
 public:
  SelectableButton();

  void paint(platform::Canvas& canvas) override;
};

}  // namespace kestroui
