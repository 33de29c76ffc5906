#include "backends/juce/Standalone.h"

#include <dlfcn.h>

#include <cstdio>
#include <cstdlib>
#include <optional>

#include "Orvane/KestroAUViewController.h"
#include "backends/juce/JuceInput.h"
#include "backends/juce/PluginBundle.h"
#include "backends/juce/QuitOnSignal.h"
#include "backends/juce/Snapshot.h"
#include "backends/juce/StandaloneSound.h"
#include "backends/juce/StandaloneWindow.h"
#include "backends/juce/StoredBindings.h"
#include "foundation/DefaultFileManager.h"
#include "foundation/LocalFileManager.h"

namespace juce_backend {
namespace {

constexpr double pictureScale = 2;

/// Always the same, so that none is left behind; the user's own, so that nobody else has put a link there.
juce::File picturesFolder(const orvane::PluginEntry& entry) {
  const char* const cache = std::getenv("XDG_CACHE_HOME");
  const juce::File folder =
      cache && *cache == '/'
          ? juce::File(toText(cache))
          : juce::File::getSpecialLocation(juce::File::userHomeDirectory).getChildFile(".cache");
  return folder.getChildFile(toText(entry.identifier));
}

int writePictures(const orvane::PluginEntry& entry) {
  // What JUCE keeps for its fonts is given back at the end.
  const juce::ScopedJuceInitialiser_GUI juceIsUp;
  const std::string folder = picturesFolder(entry).getFullPathName().toStdString();
  std::string error;
  writePages(entry, entry.preferredSize, pictureScale, folder, error);
  if (!error.empty()) {
    std::fprintf(stderr, "%s\n", error.c_str());
    return 1;
  }
  std::printf("There is no display to show %s on. Pictures of its pages are in %s\n",
              entry.name.c_str(), folder.c_str());
  return 0;
}

juce::File settingsFile(const orvane::PluginEntry& entry, const StandaloneOptions& options) {
  const juce::File folder =
      options.settingsFolder.empty()
          ? juce::File::getSpecialLocation(juce::File::userApplicationDataDirectory)
                .getChildFile(toText(entry.manufacturer.empty() ? "Orvane" : entry.manufacturer))
          : juce::File::getCurrentWorkingDirectory().getChildFile(toText(options.settingsFolder));
  return folder.getChildFile(toText(entry.identifier) + ".settings");
}

juce::PropertiesFile::Options settingsOptions() {
  juce::PropertiesFile::Options options;
  options.millisecondsBeforeSaving = -1;
  return options;
}

/// The program around one plug-in. Being a JUCE application, and not only using its message loop,
/// brings the display's scale factor and tolerance of what window managers lack.
class StandaloneApplication : public juce::JUCEApplication {
 public:
  struct Launch {
    const orvane::PluginEntry& entry;
    const StandaloneOptions& options;
  };
  /// JUCE makes the application through a plain function.
  static inline const Launch* launch = nullptr;

  const juce::String getApplicationName() override { return toText(launch->entry.name); }
  const juce::String getApplicationVersion() override { return toText(launch->entry.version); }
  bool moreThanOneInstanceAllowed() override { return true; }

  void initialise(const juce::String&) override {
    const orvane::PluginEntry& entry = launch->entry;
    processor_ = std::make_unique<AudioUnitProcessor>(entry);
    settings_ = std::make_unique<juce::PropertiesFile>(settingsFile(entry, launch->options),
                                                       settingsOptions());
    bindings_ = std::make_unique<StoredBindings>(processor_->midiLearn(), *settings_);
    auto cloud = std::make_shared<StandaloneCloud>(*settings_);
    files_ = std::make_unique<foundation::LocalFileManager>(
        foundation::LocalFileManager::usersDataFolder(),
        foundation::LocalFileManager::Groups::eachItsOwn, cloud);
    defaultFiles_.emplace(*files_);
    sound_ = std::make_unique<StandaloneSound>(*processor_);
    if (sound_->problem().isNotEmpty())
      std::fprintf(stderr, "%s is silent: %s\n", entry.name.c_str(), sound_->problem().toRawUTF8());

    editor_ = std::make_unique<EditorComponent>([&] {
      ensureMainBundle(entry);
      std::unique_ptr<orvane::KestroAUViewController> controller = entry.createViewController();
      controller->isStandaloneVersion = true;
      controller->setAudioUnit(&processor_->audioUnit());
      return controller;
    });
    auto* const controller = dynamic_cast<orvane::KestroAUViewController*>(&editor_->controller());
    processor_->midiLearn().setEditor(controller);
    cloud->folderChanged = [alive = platform::Weak<orvane::KestroAUViewController>(controller)] {
      if (!alive || !alive->presetManager()) return;
      alive->instantiatePresetManager();
      alive->rebuildPresetList();
    };
    editor_->setSize(static_cast<int>(entry.preferredSize.width),
                     static_cast<int>(entry.preferredSize.height));
    window_ = std::make_unique<StandaloneWindow>(
        toText(entry.name), *editor_, *settings_, processor_->midiLearn(),
        controller && !controller->groupBundleId().empty() ? std::move(cloud) : nullptr,
        [this](const juce::MidiMessage& message) { sound_->play(message); });
  }

  void shutdown() override {
    window_.reset();
    processor_->midiLearn().setEditor(nullptr);
    editor_.reset();
    sound_.reset();
    bindings_.reset();
    defaultFiles_.reset();
    files_->removeTemporaryDirectory();
    files_.reset();
    settings_.reset();
    processor_.reset();
  }

 private:
  QuitOnSignal quitOnSignal_;
  std::unique_ptr<AudioUnitProcessor> processor_;
  std::unique_ptr<juce::PropertiesFile> settings_;
  std::unique_ptr<StoredBindings> bindings_;
  std::unique_ptr<foundation::LocalFileManager> files_;
  std::optional<foundation::DefaultFileManager> defaultFiles_;
  std::unique_ptr<StandaloneSound> sound_;
  std::unique_ptr<EditorComponent> editor_;
  std::unique_ptr<StandaloneWindow> window_;
};

}  // namespace

bool isDisplayAvailable() {
  const char* name = std::getenv("DISPLAY");
  if (!name || !*name) return false;
  void* library = ::dlopen("libX11.so.6", RTLD_NOW | RTLD_LOCAL);
  if (!library) return false;
  const auto open = reinterpret_cast<void* (*)(const char*)>(::dlsym(library, "XOpenDisplay"));
  const auto close = reinterpret_cast<int (*)(void*)>(::dlsym(library, "XCloseDisplay"));
  void* display = open && close ? open(name) : nullptr;
  if (display) close(display);
  ::dlclose(library);
  return display != nullptr;
}

int runStandalone(const orvane::PluginEntry& entry, const StandaloneOptions& options) {
  if (!isDisplayAvailable()) return writePictures(entry);

  const StandaloneApplication::Launch launch{entry, options};
  StandaloneApplication::launch = &launch;
  juce::JUCEApplicationBase::createInstance = []() -> juce::JUCEApplicationBase* {
    return new StandaloneApplication;
  };
  const int result = juce::JUCEApplicationBase::main();
  juce::JUCEApplicationBase::createInstance = nullptr;
  StandaloneApplication::launch = nullptr;
  return result;
}

}  // namespace juce_backend
