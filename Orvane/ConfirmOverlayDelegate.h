#pragma once

namespace orvane {

class ConfirmOverlay;

/// Gets the answer to a question. Held weakly. User-interface thread only.
class ConfirmOverlayDelegate {
 public:
  virtual ~ConfirmOverlayDelegate() = default;

  /// True for YES. The panel stays until the delegate hides it.
  virtual void confirmOverlayDidAnswer(ConfirmOverlay& overlay, bool yes) = 0;
};

}  // namespace orvane
