#pragma once

#include "KestroUI/KestroButton.h"
#include "platform/Path.h"

namespace kestroui {

/// An arrow to the left or right as a button.
class ArrowButton : public KestroButton {
 public:
  enum class Direction { left, right };

  explicit ArrowButton(Direction direction = Direction::right) : direction_(direction) {}

  Direction direction() const { return direction_; }
  void setDirection(Direction direction);

  void paint(platform::Canvas& canvas) override;

 private:
  Direction direction_;
  platform::Path path_;
};

}  // namespace kestroui
