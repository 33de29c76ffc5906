#pragma once

#include <cstdint>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "toolkit/View.h"

namespace toolkit {

/// Bits, so that one registration can serve several events.
enum class ControlEvent : unsigned {
  touchDown = 1,
  touchDragged = 2,
  touchUpInside = 4,
  touchUpOutside = 8,
  touchCancelled = 16,
  valueChanged = 32,
  editingDidBegin = 64,
  editingChanged = 128,
  editingDidEnd = 256,
};
constexpr ControlEvent operator|(ControlEvent a, ControlEvent b) {
  return static_cast<ControlEvent>(static_cast<unsigned>(a) | static_cast<unsigned>(b));
}

/// A view that reports what its user does to targets. Targets are held weakly. Registering the
/// same target and action again adds its events instead of calling it twice. Targets may be added
/// and removed, and the control destroyed, from within an action: one that was removed is not
/// called any more, one that was added is called from the next event on.
///
///     button.addTarget<&MenuBar::onRandomize>(*this, ControlEvent::touchDown);
class Control : public View {
 public:
  using View::View;

  /// `Action` is a member function of the target that takes the sender (`Control&`) or nothing.
  template <auto Action, class Target>
  void addTarget(Target& target, ControlEvent events) {
    addRegistration(&target, &Thunk<Action, Target>::id, &Thunk<Action, Target>::call, events);
  }
  template <auto Action, class Target>
  void removeTarget(Target& target, ControlEvent events) {
    removeRegistration(&target, &Thunk<Action, Target>::id, events);
  }
  /// Calls every target registered for `event`, in the order of registration.
  void sendActions(ControlEvent event);

  bool isEnabled() const { return enabled_; }
  /// A disabled control is still hit but reports nothing.
  virtual void setEnabled(bool enabled);
  bool isSelected() const { return selected_; }
  virtual void setSelected(bool selected);
  /// A touch is down in it.
  bool isHighlighted() const { return highlighted_; }
  virtual void setHighlighted(bool highlighted);
  bool isHovered() const { return hovered_; }

  /// The name that assistive technology tells of a control which shows none; empty at first.
  const std::string& accessibilityLabel() const { return accessibilityLabel_; }
  void setAccessibilityLabel(std::string label) { accessibilityLabel_ = std::move(label); }

  void touchBegan(const Touch& touch) override;
  void touchMoved(const Touch& touch) override;
  void touchEnded(const Touch& touch) override;
  void touchCancelled(const Touch& touch) override;
  void hoverChanged(bool hovered) override;

 private:
  template <auto Action, class Target>
  struct Thunk {
    // Its address, which no other action shares, is the identity of the action.
    static inline char id = 0;
    static void call(platform::WeakTarget& target, Control& sender) {
      if constexpr (std::is_invocable_v<decltype(Action), Target&, Control&>)
        (static_cast<Target&>(target).*Action)(sender);
      else
        (static_cast<Target&>(target).*Action)();
    }
  };
  using Call = void (*)(platform::WeakTarget&, Control&);
  struct Registration {
    platform::Weak<platform::WeakTarget> target;
    const void* action;
    Call call;
    unsigned events;
  };

  void addRegistration(platform::WeakTarget* target, const void* action, Call call,
                       ControlEvent events);
  void removeRegistration(platform::WeakTarget* target, const void* action, ControlEvent events);

  std::vector<Registration> registrations_;
  std::string accessibilityLabel_;
  bool enabled_ = true;
  bool selected_ = false;
  bool highlighted_ = false;
  bool hovered_ = false;
  /// A touch that began while it was enabled is down.
  bool tracking_ = false;
};

}  // namespace toolkit
