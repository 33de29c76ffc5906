#pragma once

#include <cmath>
#include <functional>
#include <limits>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "KestroUI/GestureControl.h"
#include "KestroUI/Plot.h"

namespace kestroui {

/// Base of the controls whose values make a shape: an envelope, a response, a row of steps. It
/// holds the values by index and knows which handle moves which; a kind says where its handles
/// stand and paints the shape.
///
/// One set of gestures for all kinds. A drag moves the nearest handle from where it is, with Shift
/// ten times finer; several fingers move several handles. The wheel moves the value that goes up
/// and down. Left and right choose a value, up, down, Page Up and Page Down move it, Home and End
/// take it to its ends; where there is only one handle, the four arrows move that. A double tap or
/// Return tells which value it meant.
class ShapeControl : public GestureControl {
 public:
  ShapeControl() { setMultipleTouchEnabled(true); }

  // Values

  std::size_t valueCount() const { return values_.size(); }
  /// Values that are new stand at 0 in a range from 0 to 1.
  void setValueCount(std::size_t count);
  /// 0 for an index that there is none of, as for all that follows.
  float value(std::size_t index) const;
  /// Shows a value, within its range; NaN is ignored. Sends nothing.
  void setValue(std::size_t index, float value);
  void setRange(std::size_t index, float minimum, float maximum);
  float minimum(std::size_t index) const;
  float maximum(std::size_t index) const;
  /// The user then moves from step to step; 0 is no steps.
  void setStepCount(std::size_t index, int count);
  /// The share from which a fill starts: 0 at first, 0.5 for values around a centre.
  void setOrigin(std::size_t index, float share);
  float origin(std::size_t index) const;
  /// Shows the range reversed.
  void setReversed(std::size_t index, bool reversed);
  void setName(std::size_t index, const std::string& name);
  void setText(std::size_t index, const std::string& text);
  const std::string& text(std::size_t index) const;
  /// Which values take all others along when the user moves them.
  void setLinks(std::vector<bool> links) { links_ = std::move(links); }
  /// The values that the user has moved since this was asked last.
  std::vector<std::size_t> takeMoved() { return std::exchange(moved_, {}); }
  /// The live value that is shown beside the value, or none; in the value's own range. Nothing is
  /// repainted when it does not change.
  void setLive(std::size_t index, std::optional<float> value);
  bool isModulated(std::size_t index) const;

  // Handles

  /// Where the handle of a value stands, in this view's coordinates; its centre without one.
  platform::Point placeOf(std::size_t index) const;
  /// Names and texts of what the user holds, hovers over or has chosen by key; empty without.
  std::string activeText() const;
  /// Shows that text in the face itself.
  void setShowsReadout(bool shows);

  /// A value is taken hold of (true) or let go (false); between editingDidBegin and
  /// editingDidEnd. May destroy the control, as may the others.
  std::function<void(std::size_t index, bool held)> holdChanged;
  /// The value that a double tap meant, and all values of its handle.
  std::function<void(std::size_t index, std::vector<std::size_t> handle)> valueDoubleTapped;
  /// activeText has changed.
  std::function<void()> activeChanged;

  void hoverMoved(platform::Point location) override;
  void hoverChanged(bool hovered) override;
  void firstResponderChanged() override;
  bool wheelTurned(const platform::WheelEvent& event) override;
  bool keyPressed(const platform::KeyEvent& event) override;
  /// Of the value that the keys have chosen.
  platform::Accessibility accessibility() const override;
  void paint(platform::Canvas& canvas) override;

 protected:
  /// One point that the user moves, and the values that it moves, if any, sideways and upwards.
  struct Handle {
    std::optional<std::size_t> x, y;
    platform::Point place;
    /// Points from one end of the values' ranges to the other.
    platform::Size travel;
    /// Takes all values along, as if they were linked.
    bool movesAll = false;
  };

  /// From the values and the size alone, in the order in which keys choose them.
  virtual std::vector<Handle> handles() const = 0;
  /// Of the first `count` of `handles`; none of none.
  static std::optional<std::size_t> nearestOf(const std::vector<Handle>& handles, std::size_t count,
                                              platform::Point location);
  /// The handle that a touch or wheel at `location` means; the nearest in the base class.
  virtual std::optional<std::size_t> handleAt(platform::Point location) const;
  /// A touch off the handle brings it there at once.
  virtual bool jumpsToTouch() const { return false; }
  /// A touch draws: it sets every value whose handle it passes, the handles being in columns.
  virtual bool isDrawn() const { return false; }
  /// Off: the kind paints its face from the bottom up.
  virtual bool hasGround() const { return true; }
  /// Off: the kind shows live values itself, or none.
  virtual bool showsLive() const { return true; }
  /// What a change by the user may not pass; the value itself in the base class.
  virtual float limited(std::size_t /*index*/, float value) const { return value; }
  /// Paints what lies between the ground and the handles, clipped to the face.
  virtual void paintShape(platform::Canvas& canvas, const platform::Rect& plot) = 0;
  /// Paints one handle; a disc in the base class.
  virtual void paintHandle(platform::Canvas& canvas, const Handle& handle, Plot::HandleState state);

  platform::Rect plot() const { return Plot::area(bounds()); }
  /// The index itself, or none when there is no such value.
  std::optional<std::size_t> existing(std::size_t index) const {
    return index < values_.size() ? std::optional(index) : std::nullopt;
  }
  /// A handle for the values at their shares of the plot's width and height.
  Handle plotHandle(std::optional<std::size_t> x, std::optional<std::size_t> y) const;
  /// Where a value is drawn: its share of the range from 0 to 1.
  double share(std::size_t index) const;
  std::optional<double> liveShare(std::size_t index) const;
  bool isReversed(std::size_t index) const { return at(index) && at(index)->reversed; }
  bool isMuted() const { return isInactive() || !isEnabled(); }

  /// The value that the active handle moves, or that was chosen by key.
  std::optional<std::size_t> activeHandle() const;
  bool isHeld(std::size_t index) const;
  Grasp grasp(const toolkit::Touch& touch) override;
  void pressed(const toolkit::Touch& touch) override;
  void slid(const toolkit::Touch& touch) override;
  void letGo(int touchId) override;
  void doubleTap(const toolkit::Touch& touch) override;
  void touchedNow() override { noteActive(); }
  void endGesture() override;
  /// A change by the user, to a share of the range; true when it changed. Takes linked values along.
  /// Sends nothing.
  bool moveTo(std::size_t index, double share, bool withAll = false);
  void choose(std::size_t index) { chosen_ = index; }
  /// Tells that a value has been double-tapped.
  void tellDoubleTap(std::size_t index, const std::vector<Handle>& handles);
  void noteActive();

 private:
  struct Value {
    float value = 0, minimum = 0, maximum = 1;
    float origin = 0;
    float live = std::numeric_limits<float>::quiet_NaN();
    int stepCount = 0;
    bool reversed = false;
    std::string name, text;
  };
  struct Grip {
    int touchId;
    std::size_t handle;
    DraggedShare x, y;
    std::vector<std::size_t> held;
  };

  /// A change by the user; false when the value stays as it is.
  bool change(std::size_t index, float value);
  Value* at(std::size_t index) { return index < values_.size() ? &values_[index] : nullptr; }
  const Value* at(std::size_t index) const {
    return index < values_.size() ? &values_[index] : nullptr;
  }
  double stepShare(std::size_t index) const;
  /// The values that move when the user moves this one.
  std::vector<std::size_t> movedWith(std::size_t index, bool all) const;
  std::vector<std::size_t> movedBy(const Handle& handle) const;
  /// The values in the order in which keys choose them.
  std::vector<std::size_t> keyOrder(const std::vector<Handle>& handles) const;
  /// The value of the handle that was moved last, else its first.
  std::size_t meant(const Handle& handle) const;
  Grip* gripOf(int touchId);
  /// A touch holds the value.
  bool isGripped(std::size_t index) const;
  /// Takes hold of values for a change by the user, or lets go of them; false when the control died of it.
  bool hold(const std::vector<std::size_t>& indices);
  bool free(const std::vector<std::size_t>& indices);
  bool tellHold(std::size_t index, bool held);
  /// Moves the handle of a grip by a way in points; may destroy the control.
  void dragBy(Grip& grip, const Handle& handle, platform::Point way);
  /// Draws from one place to another; may destroy the control.
  void drawTo(int touchId, platform::Point from, platform::Point to);
  /// Tells of a change by the user, if it was one; may destroy the control.
  void tellMoved(bool changed);
  /// One notch, arrow or page on a value.
  void nudge(std::size_t index, double shareBy, bool all = false);

  std::vector<Value> values_;
  std::vector<std::size_t> moved_;
  std::vector<bool> links_;
  std::vector<Grip> grips_;
  /// By touches, keys or the wheel; each value once.
  std::vector<std::size_t> holds_;
  std::optional<std::size_t> hoveredHandle_;
  std::size_t chosen_ = 0;
  /// What smooth wheels have turned of the next step.
  double wheelRest_ = 0;
  bool showsReadout_ = false;
  std::string shownActive_;
};

}  // namespace kestroui
