#pragma once

#include <memory>
#include <optional>
#include <string>

#include "Orvane/HostPresetFolder.h"
#include "Orvane/PresetLibrary.h"

namespace orvane {

/// Keeps the folder of a format's hosts as the library is, beside the user-interface thread. A backend
/// makes one for each open editor; a library whose files stay costs nothing. The library outlives it.
class HostPresets : public platform::WeakTarget, private PresetLibraryObserver {
 public:
  HostPresets(PresetLibrary& library, std::string folder, HostPresetFolder::Form form);

  /// The user's own folder; empty for a user without one.
  static std::string homeFolder();

 private:
  struct Work;
  void presetLibraryDidChange(Change change) override;
  void update();

  PresetLibrary& library_;
  /// Shared with what is on its way.
  std::shared_ptr<Work> work_;
  /// What the folder shows or is about to; files that stay as they are keep their objects.
  std::optional<PresetLibrary::Presets> shown_;
};

}  // namespace orvane
