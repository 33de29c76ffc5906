// Presets that come from elsewhere and go elsewhere.

#include <algorithm>
#include <tuple>

#include "Orvane/KestroAUViewController.h"
#include "Orvane/PresetFile.h"
#include "Orvane/PresetManager.h"
#include "foundation/PropertyListCoding.h"
#include "foundation/SafeFile.h"
#include "platform/FilePath.h"
#include "platform/Presentation.h"

namespace orvane {

using platform::FileError;
using platform::FileManager;

namespace {

constexpr const char* packsFolder = "/PresetPacks";
constexpr platform::Size popoverSize{320, 400};

/// Whether a folder is `other` or lies in it, by whatever path.
bool isWithin(FileManager& files, std::string folder, const std::string& other) {
  const auto there = files.status(other, FileManager::Links::follow);
  if (!there) return false;
  for (;; folder = foundation::folderOf(folder)) {
    while (folder.size() > 1 && folder.back() == '/') folder.pop_back();
    const auto status = files.status(folder, FileManager::Links::follow);
    if (status && status->stamp == there->stamp) return true;
    if (folder == "/" || folder == ".") return false;
  }
}

platform::Presentation* presentationOf(const platform::Weak<KestroAUViewController>& controller) {
  return controller ? controller->presentation() : nullptr;
}

}  // namespace

// Import

void PresetManager::importPreset() {
  const auto* unit = audioUnit.get();
  platform::Presentation* presentation = presentationOf(viewController);
  if (!unit || !presentation) return;
  presentation->present(platform::DocumentPicker{
      {"com.Kestro." + productCode + '.' + unit->presetExtension()}, true, viewController});
}

bool PresetManager::importPresetFile(const std::string& url) {
  const auto folder = newPresetFolder();
  const std::string name = platform::lastPathComponent(url);
  if (!folder || !platform::isFileName(name)) return false;
  fileManager_.startAccessingSecurityScopedResource(url);
  const std::string target = pathIn(*folder, name);
  const auto error = fileManager_.copyItem(url, target);
  if (error) report("Unable to copy preset file... " + error->localizedDescription);
  fileManager_.stopAccessingSecurityScopedResource(url);
  // Said to be local wherever it lies; the next listing knows better.
  if (viewController)
    viewController->presetWasImported(std::make_shared<UserPreset>(target, false));
  return !error;
}

// Export

void PresetManager::exportPreset(const std::shared_ptr<Preset>& preset) {
  if (!preset || preset->name.empty()) {
    if (auto* presentation = presentationOf(viewController))
      presentation->present(platform::Alert{"Error", "No preset selected", "OK"});
    return;
  }
  const auto* unit = audioUnit.get();
  if (!unit) return;
  const std::string fileName = preset->name + '.' + unit->presetExtension();
  if (!platform::isFileName(fileName)) {
    report("A preset cannot be exported under a name with \"/\" in it");
    return;
  }
  const auto content = fileContent(preset->categories);
  const auto folder = content ? makeExportFolder() : std::nullopt;
  if (folder && isWritten(*content, *folder + fileName)) wantsToExportFileFrom(*folder + fileName);
}

std::optional<std::string> PresetManager::makeExportFolder() {
  const std::string base = fileManager_.temporaryDirectory() + "Export ";
  for (int number = 1;; ++number) {
    std::string folder = base + std::to_string(number);
    const auto error = fileManager_.createDirectory(folder, FileManager::Intermediates::mustExist);
    if (!error) return folder + '/';
    if (error->code == FileError::Code::fileExists) continue;
    report(error->localizedDescription);
    return std::nullopt;
  }
}

void PresetManager::exportPresets(const std::vector<std::shared_ptr<UserPreset>>& presets) {
  std::vector<std::string> files;
  files.reserve(presets.size());
  for (const auto& preset : presets) files.push_back(preset->url);
  exportFiles(files, Unreadable::report);
}

void PresetManager::exportAll() {
  std::vector<std::string> files;
  for (const auto& source : {localPresetPath(), iCloudPresetPath()}) {
    const auto entries = source ? fileManager_.contentsOfDirectory(*source) : std::nullopt;
    if (!entries) continue;
    for (const auto& entry : *entries) files.push_back(*source + '/' + entry.name);
  }
  exportFiles(files, Unreadable::skip);
}

void PresetManager::exportFiles(const std::vector<std::string>& files, Unreadable unreadable) {
  const auto* unit = audioUnit.get();
  const auto own = unit ? makeExportFolder() : std::nullopt;
  if (!own) return;
  const std::string folder = *own + "UserPresets/";
  if (const auto error =
          fileManager_.createDirectory(folder, FileManager::Intermediates::mustExist)) {
    report(error->localizedDescription);
    return;
  }
  const std::string extension = unit->presetExtension();
  for (const std::string& file : files) exportFile(file, folder, extension, unreadable);
  wantsToExportFileFrom(folder);
}

void PresetManager::exportFile(const std::string& file, const std::string& folder,
                               const std::string& extension, Unreadable unreadable) {
  std::string target = folder + platform::lastPathComponent(file);
  if (platform::pathExtension(file) != extension) target += '.' + extension;
  FileError failed;
  const auto bytes = fileManager_.contents(file, failed);
  std::string reason;
  const auto decoded = bytes ? PresetFile::decode(*bytes, reason) : std::nullopt;
  if (!decoded) {
    if (bytes) failed = foundation::fileError(file, "exported", reason);
    if (unreadable == Unreadable::report) report(failed.localizedDescription);
    return;
  }
  FileManager::Error error;
  if (decoded->form == PresetFile::Form::keyedArchive) {
    const std::string xml = foundation::writeXmlPropertyList(decoded->content);
    error =
        fileManager_.write({reinterpret_cast<const std::uint8_t*>(xml.data()), xml.size()}, target);
  } else {
    error = fileManager_.copyItem(file, target);
  }
  if (error) report(error->localizedDescription);
}

void PresetManager::wantsToExportFileFrom(const std::string& path) {
  platform::Presentation* presentation = presentationOf(viewController);
  if (!presentation) return;
  platform::ActivitySheet sheet{{path}, std::nullopt};
  if (presentation->userInterfaceIdiom() != platform::Presentation::Idiom::phone)
    sheet.popover = {viewController->view().frame(), popoverSize};
  presentation->present(sheet);
}

// Packs

std::optional<std::string> PresetManager::packPresetPath() const {
  const auto container = fileManager_.groupContainer(groupBundleId);
  return container ? std::optional(*container + packsFolder) : std::nullopt;
}

std::string PresetManager::presetPackPath(const std::string& packID) const {
  const auto packs = packPresetPath();
  return packs ? *packs + '/' + packID : std::string();
}

std::vector<platform::KestroAUPreset> PresetManager::getPackPresets() {
  std::vector<platform::KestroAUPreset> presets;
  const auto* unit = audioUnit.get();
  const auto folder = packPresetPath();
  const auto packs = folder ? fileManager_.contentsOfDirectory(*folder) : std::nullopt;
  if (!unit || !packs) return presets;
  std::map<std::string, PackFile> files;
  for (const auto& pack : *packs) {
    const std::string path = *folder + '/' + pack.name;
    const auto entries = pack.isDirectory ? fileManager_.contentsOfDirectory(path) : std::nullopt;
    if (!entries) continue;
    for (const auto& entry : *entries) {
      if (entry.isDirectory || platform::pathExtension(entry.name) != unit->presetExtension())
        continue;
      const std::string url = path + '/' + entry.name;
      const auto known = packFiles_.find(url);
      PackFile& file = files[url];
      if (known != packFiles_.end() && known->second.stamp == entry.stamp)
        file = std::move(known->second);
      else
        file = {entry.stamp, PresetFile::categories(fileManager_, url, entry.stamp.size)
                                 .value_or(std::vector<std::string>())};
      presets.emplace_back(platform::AUAudioUnitPreset{.name = platform::fileStem(entry.name),
                                                       .bank = pack.name,
                                                       .categories = file.categories,
                                                       .pack = pack.name});
    }
  }
  packFiles_ = std::move(files);
  std::sort(presets.begin(), presets.end(), [](const auto& a, const auto& b) {
    return std::tie(a.bankName, a.preset.name) < std::tie(b.bankName, b.preset.name);
  });
  for (std::size_t place = 0; place < presets.size(); ++place)
    presets[place].preset.number = -1 - static_cast<int>(place);
  return presets;
}

void PresetManager::copyPresetsFromBundle(const std::string& bundleURL) {
  if (!packPresetPath()) return;
  const std::string contents = bundleURL + "/Contents";
  const auto entries = fileManager_.contentsOfDirectory(contents);
  if (!entries) return;
  for (const auto& entry : *entries) copyPresetsFromFolder(contents + '/' + entry.name);
}

void PresetManager::copyPresetsFromFolder(const std::string& folderURL) {
  const auto packs = packPresetPath();
  if (!packs) return;
  createFolder(*packs);
  const std::string name = platform::lastPathComponent(folderURL);
  if (!fileManager_.isDirectory(folderURL) || !platform::isFileName(name)) return;
  const std::string target = *packs + '/' + name;
  if (isWithin(fileManager_, folderURL, target)) return;
  static_cast<void>(fileManager_.removeItem(target));
  createFolder(target);
  const auto entries = fileManager_.contentsOfDirectory(folderURL);
  if (!entries) return;
  for (const auto& entry : *entries) {
    const std::string file = target + '/' + entry.name;
    static_cast<void>(fileManager_.removeItem(file));
    if (const auto error = fileManager_.copyItem(folderURL + '/' + entry.name, file))
      report("Unable to move preset file... " + error->localizedDescription);
  }
}

}  // namespace orvane
