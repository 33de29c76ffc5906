#pragma once

#include <type_traits>

#include "toolkit/View.h"

namespace toolkit {

/// What makes a view modal while it is shown: the keyboard stays in it and goes back when it closes,
/// and nothing behind it is hit. The one that was opened last counts. Member of a Modal view.
/// User-interface thread only.
class ModalScope {
 public:
  explicit ModalScope(View& view) : view_(view) {}

  /// The view is in a window and has just been shown.
  void opened();
  /// The view has just been hidden, or is about to leave its window. The keyboard goes to who had it
  /// before, unless that one is disabled, gone or out of sight by now; then to the fallback.
  void closed();

  platform::Weak<View> fallback;

 private:
  View& view_;
  platform::Weak<View> before_;
};

/// A view that is modal from when it is shown until it is hidden. One that is shown by adding it to
/// a view calls `modalScope().opened()` then, and `closed()` before it is removed.
template <class Base>
class Modal : public Base {
  static_assert(std::is_base_of_v<View, Base>);

 public:
  using Base::Base;

  void setHidden(bool hidden) override {
    const platform::Weak<Modal> self = this;
    const bool changes = hidden != this->isHidden();
    Base::setHidden(hidden);
    if (!self || !changes) return;
    if (hidden)
      modalScope_.closed();
    else
      modalScope_.opened();
  }
  /// Who gets the keyboard when nobody else can.
  void setKeyboardFallback(View& view) { modalScope_.fallback = &view; }

 protected:
  ModalScope& modalScope() { return modalScope_; }

 private:
  ModalScope modalScope_{*this};
};

using ModalView = Modal<View>;

}  // namespace toolkit
