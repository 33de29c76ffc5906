#pragma once

namespace orvane {

/// What the about panel asks of its owner. Held weakly. User-interface thread only.
class AboutOverlayDelegate {
 public:
  virtual ~AboutOverlayDelegate() = default;

  /// Asks the system to let the user review the plug-in in its store.
  virtual void aboutOverlayRequestReview() = 0;
  /// Whether the system has a store to ask.
  virtual bool aboutOverlayCanRequestReview() = 0;
  /// It was shown or hidden, by itself as well.
  virtual void aboutOverlayHiddenChanged() = 0;
};

}  // namespace orvane
