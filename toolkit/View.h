#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "platform/Accessibility.h"
#include "platform/Canvas.h"
#include "platform/Responder.h"
#include "toolkit/Layer.h"
#include "toolkit/Touch.h"

namespace toolkit {

class DisplayList;
class ViewController;
class Window;

/// A rectangle of the editor. It places its subviews, paints itself and answers touches. The tree
/// only links: whoever owns a view destroys it, and a view that is destroyed leaves the tree on
/// both sides. User-interface thread only.
///
/// One frame, for every visible view that asked, parents before children:
///
///     layoutSubviews   asked for by setNeedsLayout, a new size or a new subview: places subviews
///                      whose places follow from the size alone
///     draw             asked for by setNeedsDisplay or a new size: places whatever follows from
///                      what the view shows as well, subviews and layers alike
///     paint            after each draw and when a layer changed: paints, and places nothing
///
/// What was painted is recorded, and the window composites what changed. All layout that is asked
/// for has been done before the first draw, but for views that a draw is about to place.
class View : public platform::Responder {
 public:
  View() { layer_.view_ = this; }
  explicit View(const platform::Rect& frame);
  ~View() override;
  View(const View&) = delete;
  View& operator=(const View&) = delete;

  // Tree

  /// Last on top. A view that is elsewhere leaves first; adding it again moves it to the top.
  void addSubview(View& view);
  void removeFromSuperview();
  void bringSubviewToFront(View& view);
  View* superview() const { return superview_; }
  const std::vector<View*>& subviews() const { return subviews_; }
  /// True for the view itself too.
  bool isDescendantOf(const View& view) const;
  /// The window whose tree this view is in, or null.
  Window* window() const;
  /// The superview; a controller's own view answers its controller first.
  platform::Responder* nextResponder() const override;

  // Geometry

  /// In the superview's coordinates.
  const platform::Rect& frame() const { return frame_; }
  /// A new size asks for layout and display; a new origin only composites. What is not finite
  /// counts as 0.
  void setFrame(const platform::Rect& frame);
  platform::Rect bounds() const { return {0, 0, frame_.width, frame_.height}; }
  /// To and from the coordinates of the root of this view's tree.
  platform::Point convertToRoot(platform::Point point) const;
  platform::Point convertFromRoot(platform::Point point) const;
  platform::Rect frameInRoot() const;

  // Display

  /// Asks for one `draw` and one `paint` before the next composite.
  virtual void setNeedsDisplay();
  /// Asks for one `layoutSubviews` (with the controller's viewWillLayoutSubviews and
  /// viewDidLayoutSubviews around it) before the next display pass.
  void setNeedsLayout();
  bool isHidden() const { return hidden_; }
  /// Hidden views and all below them are not laid out, painted or hit.
  virtual void setHidden(bool hidden);
  /// Not hidden, nor any superview, and in a window.
  bool isShown() const;
  /// Nothing below is painted or hit outside the bounds. Off at first.
  bool clipsToBounds() const { return clipsToBounds_; }
  void setClipsToBounds(bool clips);
  platform::Color backgroundColor() const { return layer_.backgroundColor(); }
  void setBackgroundColor(platform::Color color) { layer_.setBackgroundColor(color); }
  Layer& layer() { return layer_; }
  const Layer& layer() const { return layer_; }

  // Touches

  bool isUserInteractionEnabled() const { return userInteractionEnabled_; }
  /// Off: neither this view nor any below it is hit.
  void setUserInteractionEnabled(bool enabled) { userInteractionEnabled_ = enabled; }
  /// Off at first: while one touch is down in this view, further ones that hit it are dropped.
  bool isMultipleTouchEnabled() const { return multipleTouchEnabled_; }
  void setMultipleTouchEnabled(bool enabled) { multipleTouchEnabled_ = enabled; }
  /// On: it and what is in it are hit beside a modal view too, for what stays in reach above one.
  bool isReachableBesideModals() const { return reachableBesideModals_; }
  void setReachableBesideModals(bool reachable) { reachableBesideModals_ = reachable; }
  /// The topmost view at `point` (in this view's coordinates), or null.
  virtual View* hitTest(platform::Point point);
  /// Whether `point`, in this view's coordinates, is in this view.
  virtual bool pointInside(platform::Point point) const { return bounds().contains(point); }

  /// A touch that began here goes on here until it ends or is cancelled, wherever it moves.
  virtual void touchBegan(const Touch&) {}
  virtual void touchMoved(const Touch&) {}
  virtual void touchEnded(const Touch&) {}
  /// The window, the host or a hidden view took the touch away.
  virtual void touchCancelled(const Touch&) {}
  /// A mouse without a button came over this view or one below it (true), or left (false).
  virtual void hoverChanged(bool) {}
  /// The mouse without a button moved over this view, where no view below it is hit. `location` is
  /// in this view's coordinates.
  virtual void hoverMoved(platform::Point /*location*/) {}

  // Keyboard

  virtual bool canBecomeFirstResponder() const { return false; }
  /// Takes the keyboard; false when it cannot (no window, hidden, or not willing).
  bool becomeFirstResponder();
  void resignFirstResponder();
  bool isFirstResponder() const;
  /// On: while it is shown, keys and assistive technology do not reach the views beside it, which it
  /// covers; several may cover the same ones together.
  bool coversSiblings() const { return coversSiblings_; }
  void setCoversSiblings(bool covers) { coversSiblings_ = covers; }
  /// The subviews that keys and assistive technology reach, in their order.
  std::vector<View*> reachableSubviews() const;

  // Accessibility

  /// What it is to somebody who does not see it; nothing at first. A touch, or the key that moves
  /// or presses it, does what assistive technology asks for.
  virtual platform::Accessibility accessibility() const { return {}; }
  /// Moves the value of its range as the user would; false where it has none.
  virtual bool setAccessibilityValue(double) { return false; }

  // Overridables

  /// Has another superview now, or none.
  virtual void didMoveToSuperview() {}

  // The passes of a frame, as told above.

  virtual void layoutSubviews() {}
  /// `rect` is the bounds.
  virtual void draw(const platform::Rect& /*rect*/) {}
  /// Over its layers and below its subviews, in its own coordinates.
  virtual void paint(platform::Canvas&) {}
  /// This view has become, or is no longer, the first responder.
  virtual void firstResponderChanged() {}

 private:
  friend class Window;
  friend class ViewController;
  friend class Layer;

  /// Bits of what has to be done for the next frame.
  struct Need {
    enum : unsigned {
      layout = 1,
      display = 2,
      /// Its layers have changed: a `paint` without a `draw`.
      paint = 4,
      /// The recording has changed.
      content = 8,
      /// Frame, visibility or place among its siblings have changed.
      place = 16,
      /// A view below needs something.
      below = 32,
    };
  };

  /// How the window composited this view last; places are in root coordinates.
  struct Composited {
    platform::Point origin;
    /// What its recording covers, clipped.
    platform::Rect area;
    /// The same with all views below; empty while it is not shown.
    platform::Rect tree;
    /// The bounds, when they clip.
    platform::Rect clip;
    bool clips = false;
  };

  void markNeeds(unsigned needs);
  /// Without telling anybody.
  void leaveSuperview();
  /// What is hidden waits until it is shown, but for being taken away from the picture.
  bool concernsFrame() const { return (hidden_ ? needs_ & Need::place : needs_) != 0; }

  View* superview_ = nullptr;
  std::vector<View*> subviews_;
  ViewController* controller_ = nullptr;
  Window* rootOf_ = nullptr;
  Layer layer_;
  platform::Rect frame_;
  bool hidden_ = false;
  bool clipsToBounds_ = false;
  bool userInteractionEnabled_ = true;
  bool multipleTouchEnabled_ = false;
  bool reachableBesideModals_ = false;
  bool coversSiblings_ = false;
  unsigned needs_ = Need::layout | Need::display | Need::place;
  /// The frames, as the window counts them, of the last layout and the last display.
  std::uint32_t laidOutIn_ = 0;
  std::uint32_t displayedIn_ = 0;
  /// What `paint` recorded last.
  std::shared_ptr<DisplayList> recording_;
  Composited composited_;
};

}  // namespace toolkit
