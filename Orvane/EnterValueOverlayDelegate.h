#pragma once

#include "Orvane/TextFieldOverlayDelegate.h"

namespace orvane {

/// The delegate of a value-entry panel. Held weakly. User-interface thread only.
class EnterValueOverlayDelegate : public TextFieldOverlayDelegate {
 public:
  /// RESET was pressed. The panel stays until the delegate hides it.
  virtual void enterValueOverlayDidReset() = 0;
};

}  // namespace orvane
