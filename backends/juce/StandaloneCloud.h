#pragma once

#include <juce_data_structures/juce_data_structures.h>
#include <juce_gui_basics/juce_gui_basics.h>

#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>

#include "foundation/FolderCloud.h"

namespace juce_backend {

/// The cloud of a stand-alone's user: the folder that its settings name, and without one that of the
/// environment. The settings outlive what the user-interface thread does with it.
class StandaloneCloud : public platform::CloudStorage {
 public:
  explicit StandaloneCloud(juce::PropertiesFile& settings);

  /// Empty for none of its own. User-interface thread.
  juce::String folder() const;
  void setFolder(const juce::String& folder);
  /// Told after each change of the folder. User-interface thread.
  std::function<void()> folderChanged;

  std::optional<std::string> container(const std::optional<std::string>& identifier) override;
  bool isUbiquitousItem(const std::string& path) override;
  void coordinateReading(const std::string& path,
                         std::function<void(std::optional<std::string>)> accessor) override;

 private:
  std::shared_ptr<foundation::UsersCloud> current() const;

  juce::PropertiesFile& settings_;
  mutable std::mutex mutex_;
  std::shared_ptr<foundation::UsersCloud> cloud_;
};

/// Where presets are kept: in a folder that the user chooses, or on this computer. Its items do nothing
/// once `cloud` has gone.
juce::PopupMenu presetFolderMenu(const std::shared_ptr<StandaloneCloud>& cloud);

}  // namespace juce_backend
