#pragma once

#include <functional>
#include <string>

#include "KestroUI/KestroButtons.h"
#include "Orvane/ParagraphLabel.h"
#include "foundation/RunLoop.h"
#include "toolkit/View.h"

namespace orvane {

/// Tells what has happened, at the bottom of the editor, for some seconds: a sentence, and a button
/// that does something about it where there is something to do. It covers the editor, but only its
/// panel is hit; it takes no keyboard and waits for nobody. A second notice replaces the first.
/// User-interface thread only.
class NoticeView : public toolkit::View {
 public:
  /// Seconds that a notice stays; as long as the mouse is over it, it does not go.
  static constexpr double duration = 6;

  NoticeView();

  /// An empty `buttonTitle` is no button. `action` may destroy the view.
  void show(const std::string& text, const std::string& buttonTitle = {},
            std::function<void()> action = {});
  void hide();
  /// What is shown, or empty.
  std::string text() const { return isHidden() ? std::string() : label_.text(); }
  kestroui::SimpleButton& button() { return button_; }
  const platform::Rect& panelFrame() const { return panel_.frame(); }

  bool pointInside(platform::Point point) const override;
  void hoverChanged(bool hovered) override;
  void didMoveToSuperview() override;
  void draw(const platform::Rect& rect) override;

 private:
  void handleTouchDown();
  void wait();

  toolkit::View panel_;
  ParagraphLabel label_;
  kestroui::SimpleButton button_;
  std::function<void()> action_;
  foundation::Timer timer_;
};

}  // namespace orvane
