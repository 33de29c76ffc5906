#pragma once

#include <memory>
#include <string>

#include "Orvane/ParameterGroups.h"
#include "Orvane/PluginEntry.h"
#include "backends/lv2/PortLayout.h"
#include "backends/lv2/PortTurtle.h"
#include "platform/AudioUnit.h"

namespace lv2_backend {

/// What a bundle has beside the plug-in itself.
struct BundleFiles {
  /// Names of the libraries in the bundle; no editor when its name is empty.
  std::string soundLibrary;
  std::string editorLibrary;
  /// The file that describes the plug-in.
  std::string pluginFile;
  /// Address of the licence; left out when empty.
  std::string license;
  /// Whether hosts are to send MIDI, which effects too can learn.
  bool takesMidi = true;
  /// Of LV2's classes the one that the plug-in belongs to, "DelayPlugin"; when it is empty, what the
  /// audio unit's channels say.
  std::string pluginClass{};
};

/// The text of the files that describe a plug-in to LV2 hosts. Needs a run loop, as every editor
/// does, but shows nothing.
class BundleTurtle {
 public:
  static constexpr const char* presetsFile = "presets.ttl";

  BundleTurtle(const orvane::PluginEntry& entry, BundleFiles files);

  /// manifest.ttl: which plug-in, editor and presets there are, and where they are described.
  std::string manifest() const;
  std::string plugin() const;
  /// Empty when the plug-in has no factory presets.
  std::string presets();

 private:
  std::string pluginClass() const;
  std::string presetAddress(const platform::AUAudioUnitPreset& preset) const;
  std::string editor() const;

  const orvane::PluginEntry& entry_;
  BundleFiles files_;
  std::string uri_;
  std::unique_ptr<platform::AudioUnit> audioUnit_;
  PortLayout layout_;
  orvane::ParameterGroups groups_;
  PortTurtle ports_;
};

}  // namespace lv2_backend
