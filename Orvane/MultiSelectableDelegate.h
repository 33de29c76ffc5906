#pragma once

namespace orvane {

/// Whoever wants to know what is chosen in a MultiSelectable. Held weakly.
class MultiSelectableDelegate {
 public:
  virtual ~MultiSelectableDelegate() = default;
  /// After every change; the control's `selectedValues` says what is chosen now.
  virtual void selectedValuesChanged() = 0;
};

}  // namespace orvane
