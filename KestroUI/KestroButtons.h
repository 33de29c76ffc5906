#pragma once

#include "KestroUI/Theme.h"
#include "platform/Path.h"
#include "toolkit/Button.h"

namespace kestroui {

/// Base of the family's plain buttons, which report taps and hold no value.
class KestroButton : public toolkit::Button {
 public:
  KestroButton();

  /// The colour of marks and selected faces; titles have the title colour.
  platform::Color accentColor() const { return accentColor_; }
  void setAccentColor(platform::Color color);

  void firstResponderChanged() override;

 protected:
  /// `color` as the button's state wants it.
  platform::Color stateColor(platform::Color color) const;
  /// The veil below icons and titles while hovered or pressed, and the ring of the keyboard.
  void paintState(platform::Canvas& canvas, double radius) { paintState(canvas, radius, bounds()); }
  /// The same for a button that shows less than its frame.
  void paintState(platform::Canvas& canvas, double radius, const platform::Rect& face);

 private:
  platform::Color accentColor_ = Theme::front;
};

/// A tab: a title that is underlined while selected. Its owner selects it.
class SelectableButton : public KestroButton {
 public:
  SelectableButton();

  void paint(platform::Canvas& canvas) override;
};

/// A picture as a button; with a title, the picture is at the left and the title beside it.
class ImageButton : public KestroButton {
 public:
  ImageButton() = default;

  void paint(platform::Canvas& canvas) override;
};

/// A button with a title, and a picture beside it when it has one. Its face is a plain surface,
/// left out where its layer has a border of its own.
class SimpleButton : public KestroButton {
 public:
  SimpleButton() = default;
  explicit SimpleButton(std::string title) { setTitle(std::move(title)); }

  /// Keeps the title off both ends, in points, for what stands there.
  void setTitleMargin(double margin);

  void paint(platform::Canvas& canvas) override;

 private:
  double titleMargin_ = 0;
};

/// An arrow as a button: to the left or right for what is there, down for what opens.
class ArrowButton : public KestroButton {
 public:
  enum class Direction { left, right, down };

  explicit ArrowButton(Direction direction = Direction::right) : direction_(direction) {}

  void paint(platform::Canvas& canvas) override;

 private:
  Direction direction_;
  platform::Path path_;
};

/// A star as a button: filled while selected. Its owner selects it.
class StarButton : public KestroButton {
 public:
  StarButton();

  void paint(platform::Canvas& canvas) override;

 private:
  platform::Path path_;
};

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
