#pragma once

#include <memory>

#include "Orvane/Preset.h"

namespace orvane {

/// Told which preset the list has selected. Held weakly. User-interface thread only.
class PresetListTableViewControllerDelegate {
 public:
  virtual ~PresetListTableViewControllerDelegate() = default;

  virtual void presetListDidSelect(const std::shared_ptr<Preset>& preset) = 0;
  /// Other presets are shown now.
  virtual void presetListDidChange() {}
};

}  // namespace orvane
