#include "backends/juce/StandaloneCloud.h"

#include <utility>

#include "backends/juce/JuceInput.h"
#include "foundation/DispatchQueue.h"

namespace juce_backend {

namespace {

constexpr const char* folderKey = "cloudFolder";

std::shared_ptr<foundation::UsersCloud> cloudIn(const juce::String& folder) {
  return folder.isEmpty() ? foundation::UsersCloud::ofEnvironment()
                          : foundation::UsersCloud::in(folder.toStdString());
}

}  // namespace

StandaloneCloud::StandaloneCloud(juce::PropertiesFile& settings)
    : settings_(settings), cloud_(cloudIn(folder())) {}

juce::String StandaloneCloud::folder() const { return settings_.getValue(folderKey); }

void StandaloneCloud::setFolder(const juce::String& folder) {
  settings_.setValue(folderKey, folder);
  settings_.save();
  {
    const std::lock_guard lock(mutex_);
    cloud_ = cloudIn(folder);
  }
  if (folderChanged) folderChanged();
}

std::shared_ptr<foundation::UsersCloud> StandaloneCloud::current() const {
  const std::lock_guard lock(mutex_);
  return cloud_;
}

std::optional<std::string> StandaloneCloud::container(
    const std::optional<std::string>& identifier) {
  const auto cloud = current();
  return cloud ? cloud->container(identifier) : std::nullopt;
}

bool StandaloneCloud::isUbiquitousItem(const std::string& path) {
  const auto cloud = current();
  return cloud && cloud->isUbiquitousItem(path);
}

void StandaloneCloud::coordinateReading(const std::string& path,
                                        std::function<void(std::optional<std::string>)> accessor) {
  if (const auto cloud = current()) return cloud->coordinateReading(path, std::move(accessor));
  foundation::DispatchQueue::globalAsync(
      [accessor = std::move(accessor)] { accessor(std::nullopt); });
}

juce::PopupMenu presetFolderMenu(const std::shared_ptr<StandaloneCloud>& cloud) {
  const std::weak_ptr<StandaloneCloud> alive = cloud;
  const juce::String folder = cloud->folder();
  juce::PopupMenu menu;
  menu.addItem("Keep presets on this computer", true, folder.isEmpty(), [alive] {
    if (const auto found = alive.lock()) found->setFolder({});
  });
  if (folder.isNotEmpty()) menu.addItem("Keep presets in " + folder, true, true, nullptr);
  menu.addItem("Keep presets in a folder of a cloud...", [alive, folder] {
    auto chooser = std::make_shared<juce::FileChooser>(
        "A folder that is kept in step with other computers", juce::File(folder));
    chooser->launchAsync(
        juce::FileBrowserComponent::openMode | juce::FileBrowserComponent::canSelectDirectories,
        [alive, chooser](const juce::FileChooser& chosen) {
          const auto found = alive.lock();
          const juce::File result = chosen.getResult();
          if (found && result.isDirectory()) found->setFolder(result.getFullPathName());
        });
  });
  return menu;
}

}  // namespace juce_backend
