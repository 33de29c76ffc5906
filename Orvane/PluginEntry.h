#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/AudioUnit.h"
#include "platform/Geometry.h"
#include "platform/PropertyList.h"

namespace orvane {

class KestroAUViewController;

/// All that a backend or a tool needs to know of a plug-in. The plug-in defines one function that
/// returns it; the backend makes the audio unit, then the editor, and joins them:
///
///     std::unique_ptr<platform::AudioUnit> unit = entry.createAudioUnit();
///     std::unique_ptr<orvane::KestroAUViewController> editor = entry.createViewController();
///     editor->setAudioUnit(unit.get());  // before the view is loaded; the editor may outlive it
struct PluginEntry {
  /// Reverse domain name, unique among all plug-ins: "org.example.synth".
  std::string identifier;
  /// As hosts list it. UTF-8.
  std::string name;
  /// Three numbers with dots.
  std::string version;
  /// One sentence.
  std::string description;
  std::string manufacturer;
  platform::AudioComponentDescription component;
  /// What the plug-in makes; whoever shows it calls createAudioUnit and createViewController.
  std::function<std::unique_ptr<platform::AudioUnit>()> makeAudioUnit;
  std::function<std::unique_ptr<KestroAUViewController>()> makeViewController;
  /// Size of a new editor in points.
  platform::Size preferredSize{1024, 768};
  /// The number of the build, which follows the version where both are shown.
  std::string build{"1"};
  /// What the app store calls the plug-in; empty for one that is in none.
  std::string storeIdentifier{};

  /// The audio unit, as the plug-in's controller makes it: a controller is made for it alone and
  /// never loaded, which needs neither a run loop nor the user-interface thread.
  std::unique_ptr<platform::AudioUnit> createAudioUnit() const;
  /// A controller that knows how to make the audio unit.
  std::unique_ptr<KestroAUViewController> createViewController() const;

  /// The entries of the plug-in's property list.
  platform::PropertyList::Dictionary infoDictionary() const {
    return {{"CFBundleIdentifier", identifier},
            {"CFBundleDisplayName", name},
            {"CFBundleShortVersionString", version},
            {"CFBundleVersion", build},
            {"StoreIdentifier", storeIdentifier}};
  }
};

}  // namespace orvane
