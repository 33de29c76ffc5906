#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "toolkit/Control.h"

namespace kestroui {

/// A MIDI message in words, as a badge shows it: "CC 74" and "ch 1". Notes are named with 60 as C4,
/// channels counted from 1; messages without a channel have none.
struct MidiMapText {
  std::string what;
  std::string channel;

  /// The status byte comes first. What is no message is shown as its bytes.
  explicit MidiMapText(const std::vector<std::uint8_t>& message);
  /// "CC 74 ch 1".
  std::string whole() const { return channel.empty() ? what : what + ' ' + channel; }
};

/// What covers a control, or one of several values of it, in learn mode: it shows the MIDI binding,
/// whether the value waits for a message (selected), and a cross that deletes the binding. It takes
/// every touch, so that a tap selects (touchDown) where it would move the control otherwise. Return
/// and Space select, Delete deletes. Owned by a container.
class MidiMapBadge : public toolkit::Control {
 public:
  MidiMapBadge();

  /// Null shows no binding and no cross.
  void setMessage(const std::optional<std::vector<std::uint8_t>>& message);
  /// Empty without a binding.
  std::string text() const;
  /// The name of its value, where the control has several; empty at first.
  void setTitle(const std::string& title);
  /// Sends touchUpInside.
  toolkit::Control& deleteButton() { return deleteButton_; }
  /// How much larger texts are than on the smallest editor.
  void setTextScale(double scale);
  /// What the control is called, which it covers.
  std::function<std::string()> ownerName;
  /// Where the control is in it; the rest is left for the title.
  void setFace(const platform::Rect& face);

  bool canBecomeFirstResponder() const override { return true; }
  void firstResponderChanged() override { setNeedsDisplay(); }
  bool keyPressed(const platform::KeyEvent& event) override;
  bool wheelTurned(const platform::WheelEvent&) override { return true; }
  platform::Accessibility accessibility() const override;
  void draw(const platform::Rect& rect) override;
  void paint(platform::Canvas& canvas) override;

 private:
  class DeleteButton : public toolkit::Control {
   public:
    void paint(platform::Canvas& canvas) override;
    double markSide = 0;
  };

  void paintText(platform::Canvas& canvas) const;
  /// Paints the title above `room`, and gives what is left of it.
  platform::Rect paintTitle(platform::Canvas& canvas, platform::Rect room) const;

  std::string title_;
  std::string what_;
  std::string channel_;
  DeleteButton deleteButton_;
  platform::Rect face_;
  double textScale_ = 1;
};

}  // namespace kestroui
