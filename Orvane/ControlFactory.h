#pragma once

#include <memory>

#include "KestroUI/Container.h"
#include "KestroUI/ControlType.h"

namespace orvane {

/// Builds the containers that need nothing but their kind.
struct ControlFactory {
  /// Null for `none`, a value that is no case, and the five kinds that need more than their kind:
  /// radioButtons, radioWaveForm, multiple, waveformKnob and dropdownList.
  static std::shared_ptr<kestroui::Container> container(kestroui::ControlType type);
};

}  // namespace orvane
