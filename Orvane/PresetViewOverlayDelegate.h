#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "Orvane/UserPreset.h"

namespace orvane {

/// Does what the user wants of presets; the browser itself touches no file. Held weakly.
/// User-interface thread only.
class PresetViewOverlayDelegate {
 public:
  virtual ~PresetViewOverlayDelegate() = default;

  /// The list has a new selection: load it.
  virtual void presetSelected(const std::shared_ptr<Preset>& preset) = 0;
  /// The path of the new preset, or none when it could not be saved.
  virtual std::optional<std::string> saveNewPreset(const std::string& name,
                                                   const std::vector<std::string>& categories) = 0;
  /// Replaces the preset by the state as it is now.
  virtual void savePreset(const UserPreset& preset) = 0;
  virtual void deletePreset(const UserPreset& preset) = 0;
  virtual void importPresets() = 0;
  virtual void exportPreset() = 0;
  virtual void presetViewOverlayDidHide() = 0;
};

}  // namespace orvane
