#pragma once

#include "KestroUI/KestroButton.h"

namespace kestroui {

/// A button with a title, and a picture beside it when it has one. Its face is a plain surface,
/// left out where its layer has a border of its own.
class SimpleButton : public KestroButton {
 public:
  SimpleButton() = default;
  explicit SimpleButton(std::string title) { setTitle(std::move(title)); }

  void paint(platform::Canvas& canvas) override;
};

}  // namespace kestroui
