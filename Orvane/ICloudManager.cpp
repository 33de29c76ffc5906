#include "Orvane/ICloudManager.h"

#include <utility>

#include "Orvane/CoordinatedReading.h"
#include "foundation/Console.h"
#include "foundation/DefaultFileManager.h"
#include "platform/FileManager.h"
#include "platform/FilePath.h"

namespace orvane {

using platform::FileManager;

ICloudManager::ICloudManager(std::optional<std::string> containerIdentifier)
    : identifier(std::move(containerIdentifier)) {}

std::optional<std::string> ICloudManager::iCloudURL() const {
  const auto cloud = foundation::DefaultFileManager::current().cloud();
  const auto container = cloud ? cloud->container(identifier) : std::nullopt;
  return container ? std::optional(*container + "/Documents") : std::nullopt;
}

void ICloudManager::initialize() const {
  const auto url = iCloudURL();
  if (!url) return;
  const auto error = foundation::DefaultFileManager::current().createDirectory(
      *url, FileManager::Intermediates::create);
  if (error) foundation::printToConsole(error->localizedDescription);
}

void ICloudManager::sync(const std::optional<std::string>& url,
                         std::function<void(const std::string&)> completion) const {
  FileManager& files = foundation::DefaultFileManager::current();
  const auto cloud = files.cloud();
  const auto entries = url && cloud ? files.contentsOfDirectory(*url) : std::nullopt;
  if (!entries) return;
  std::vector<std::string> items;
  for (const auto& entry : *entries) items.push_back(*url + '/' + entry.name);
  CoordinatedReading::start(
      cloud, std::move(items),
      [cloud](const std::string& item) {
        return platform::pathExtension(item) == "icloud" && cloud->isUbiquitousItem(item);
      },
      [completion = std::move(completion)](const std::string&,
                                           const std::optional<std::string>& path) {
        if (path) completion(*path);
      });
}

}  // namespace orvane
