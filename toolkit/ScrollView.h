#pragma once

#include <memory>
#include <optional>

#include "foundation/RunLoop.h"
#include "toolkit/View.h"

namespace toolkit {

/// A window on something higher than itself. Fingers push it and let it glide, the wheel turns it,
/// a bar at its right end shows where it is and can be dragged, keys page through it. A subclass
/// places in `draw` what shows at the present offset. Touches go to it and not to the views in it,
/// but for controls; one that does not move is a tap. It only runs while it glides.
/// User-interface thread only.
class ScrollView : public View {
 public:
  ScrollView();
  ~ScrollView() override;

  /// Height of the whole content in points.
  double contentHeight() const { return contentHeight_; }
  void setContentHeight(double height);
  /// How far the content's top is above the view's, in points: 0 to contentHeight less the view's
  /// own height.
  double contentOffset() const { return offset_; }
  void setContentOffset(double offset);
  double maximumOffset() const;
  /// What the bar takes of the width at the right end, in points; nothing when all is in sight.
  double barRoom() const;
  /// The shortest way that brings `rect`, in the content's coordinates, into sight.
  void scrollRectToVisible(const platform::Rect& rect);
  /// Of the bar, over the content.
  void setBarColor(platform::Color color);

  View* hitTest(platform::Point point) override;
  void touchBegan(const Touch& touch) override;
  void touchMoved(const Touch& touch) override;
  void touchEnded(const Touch& touch) override;
  void touchCancelled(const Touch& touch) override;
  void hoverChanged(bool hovered) override;
  bool wheelTurned(const platform::WheelEvent& event) override;
  bool keyPressed(const platform::KeyEvent& event) override;
  void draw(const platform::Rect& rect) override;

 protected:
  /// A touch is down, at this place in the view; none when it moved on or lifted.
  virtual void pressed(const std::optional<platform::Point>& /*place*/) {}
  /// A touch lifted where it began. May destroy the view.
  virtual void tapped(const Touch& /*touch*/) {}
  /// The distance that one wheel notch moves, in points.
  virtual double wheelStep() const { return 48; }
  /// Views that scroll go in here, so that the bar stays above them.
  View& content() { return content_; }

 private:
  /// Paints the bar.
  class Bar : public View {
   public:
    void setThumb(const platform::Rect& thumb, platform::Color color);
    const platform::Rect& thumb() const { return thumb_; }
    void paint(platform::Canvas& canvas) override;

   private:
    platform::Rect thumb_;
    platform::Color color_;
  };

  enum class Gesture { none, press, pan, bar };

  void updateBar();
  void glide();
  void stop();

  View content_;
  Bar bar_;
  platform::Color barColor_ = platform::Color::white().withAlpha(0.4f);
  double contentHeight_ = 0;
  double offset_ = 0;
  Gesture gesture_ = Gesture::none;
  bool hovered_ = false;
  platform::Point start_;
  double startOffset_ = 0;
  /// Points a second, positive towards the content's end.
  double velocity_ = 0;
  double lastTime_ = 0;
  /// Only while it glides.
  std::unique_ptr<foundation::DisplayLink> gliding_;
};

}  // namespace toolkit
