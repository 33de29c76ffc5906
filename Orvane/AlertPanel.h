#pragma once

#include <functional>
#include <string>
#include <vector>

#include "KestroUI/KestroButtons.h"
#include "Orvane/OverlayStyle.h"
#include "toolkit/ModalView.h"

namespace orvane {

/// A message over the whole editor, with a button that closes it or two that answer it. It has the
/// keyboard while it is shown: Return presses the button in focus, Escape the first one. Messages
/// wait for each other; one that is shown or waits already is not shown twice. User-interface
/// thread.
class AlertPanel : public toolkit::ModalView {
 public:
  struct Message {
    std::string title;
    std::string text;
    /// One or two; the first is the safe one and has the keyboard.
    std::vector<std::string> buttons;
    /// The index of the button that was pressed; may be null.
    std::function<void(std::size_t)> answered;
  };

  /// It comes on top of `root`, and leaves it when there is nothing more to say.
  explicit AlertPanel(toolkit::View& root);

  void show(Message message);
  /// What is shown now, or null.
  const Message* message() const { return messages_.empty() ? nullptr : &messages_.front(); }
  kestroui::SimpleButton& button(std::size_t index) { return buttons_[index]; }
  /// As if the button had been pressed.
  void answer(std::size_t index);

  void touchBegan(const toolkit::Touch& touch) override;
  bool keyPressed(const platform::KeyEvent& event) override;
  platform::Accessibility accessibility() const override;
  void draw(const platform::Rect& rect) override;
  void paint(platform::Canvas& canvas) override;

 private:
  void showFirst();
  void handleTouchDown(toolkit::Control& sender);

  toolkit::View& root_;
  std::vector<Message> messages_;
  kestroui::SimpleButton buttons_[2];
  platform::Rect box_, titleFrame_;
  platform::Font titleFont_, textFont_;
  std::vector<std::string> lines_;
};

}  // namespace orvane
