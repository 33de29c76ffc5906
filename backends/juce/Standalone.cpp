#include "backends/juce/Standalone.h"

#include <dlfcn.h>

#include <cstdio>
#include <cstdlib>

#include "Orvane/KestroAUViewController.h"
#include "backends/juce/Snapshot.h"
#include "backends/juce/StandaloneSound.h"
#include "backends/juce/StandaloneWindow.h"

namespace juce_backend {
namespace {

constexpr double pictureScale = 2;

juce::String text(const std::string& utf8) { return juce::String::fromUTF8(utf8.c_str()); }

int writePictures(const orvane::PluginEntry& entry) {
  const std::string folder = juce::File::getSpecialLocation(juce::File::tempDirectory)
                                 .getNonexistentChildFile(text(entry.identifier), {}, false)
                                 .getFullPathName()
                                 .toStdString();
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
                .getChildFile(text(entry.manufacturer.empty() ? "Orvane" : entry.manufacturer))
          : juce::File::getCurrentWorkingDirectory().getChildFile(text(options.settingsFolder));
  return folder.getChildFile(text(entry.identifier) + ".settings");
}

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

  const juce::ScopedJuceInitialiser_GUI juceIsUp;
  AudioUnitProcessor processor(entry);
  StandaloneSound sound(processor);
  if (sound.problem().isNotEmpty())
    std::fprintf(stderr, "%s is silent: %s\n", entry.name.c_str(), sound.problem().toRawUTF8());

  const auto makeEditor = [&] {
    std::unique_ptr<orvane::KestroAUViewController> controller = entry.makeViewController();
    controller->isStandaloneVersion = true;
    controller->setAudioUnit(&processor.audioUnit());
    return controller;
  };
  EditorComponent editor(makeEditor);
  editor.setSize(static_cast<int>(entry.preferredSize.width),
                 static_cast<int>(entry.preferredSize.height));
  StandaloneWindow window(text(entry.name), editor, settingsFile(entry, options),
                          [&](const juce::MidiMessage& message) { sound.play(message); });
  juce::MessageManager::getInstance()->runDispatchLoop();
  return 0;
}

}  // namespace juce_backend
