#pragma once

#include <string>

namespace orvane {

/// Moves presets from the cloud container of an earlier version. User-interface thread, which never
/// waits for the cloud.
class ICloudMigrationHelper {
 public:
  ICloudMigrationHelper() = delete;

  /// Moves the files of the preset folder and of one more folder, and does so again a second later,
  /// as long as there are any: what could not be moved, since there is a file of that name already,
  /// is tried again for ever. The run that finds nothing left removes the documents of the earlier
  /// container.
  static void movePresetsFromPreviousICloud(const std::string& previousIdentifier,
                                            const std::string& extraResourceFolderName);
};

}  // namespace orvane
