#pragma once

#include <string>

#include "Orvane/Preset.h"

namespace orvane {

/// A preset that the user has saved, in a file of its own. Its name is that of the file without the
/// extension; its categories are empty until the store has read them.
class UserPreset : public Preset {
 public:
  UserPreset(std::string path, bool liesInICloud);

  std::string uniqueName() const override { return url; }

  /// Whether the file lies in the cloud's preset folder.
  bool isICloud = false;
  /// The path of the file.
  const std::string url;
};

}  // namespace orvane
