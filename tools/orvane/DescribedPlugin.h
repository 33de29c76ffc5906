#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "KestroUI/ParameterUISettings.h"
#include "Orvane/AUDesign.h"
#include "Orvane/MakerAddresses.h"
#include "Orvane/PluginEntry.h"
#include "Quillon/CommonAudioUnit.h"
#include "Quillon/ParameterDescription.h"

namespace tool {

struct DescribedParameter {
  quillon::ParameterDescription audio;
  kestroui::ParameterUISettings settings;
};

struct DescribedPage {
  std::string title;
  std::vector<orvane::UISection> sections;
};

/// What a description file says: a plug-in's editor without its sound. Only values that the editor
/// can show; see docs/described-plugins.md for the fields.
struct DescribedPlugin {
  std::string name;
  std::string version = "1.0";
  std::string build = "1";
  std::string productId;
  std::string presetExtension;
  double contentRatio = 0.75;
  double footHeightRatio = 0;
  std::vector<std::optional<std::string>> foot;
  std::vector<std::string> categories;
  std::string storeIdentifier;
  orvane::MakerAddresses addresses;
  std::vector<std::string> displays;
  bool areDisplaysIconWaveforms = false;
  bool presetViewUseFilters = false;
  bool allowImportAndExport = false;
  std::vector<DescribedParameter> parameters;
  std::vector<DescribedPage> pages;
  std::vector<quillon::PresetDescription> factoryPresets;
};

/// The audio unit of a described plug-in: all its parameters and presets, and silence. Its live
/// values and modulation flags are set by hand.
class DescribedAudioUnit : public quillon::CommonAudioUnit {
 public:
  explicit DescribedAudioUnit(const DescribedPlugin& plugin);

  /// False for an unknown key.
  bool setLive(std::string_view key, float value);
  bool setModulating(std::string_view key, bool modulating);

  /// A described plug-in has an identifier whenever it has presets of its own.
  bool hasStore() const override { return hasStore_; }
  std::string presetExtension() const override { return presetExtension_; }

  void render(const platform::RenderBlock& block) override;

 private:
  const bool hasStore_;
  const std::string presetExtension_;
};

/// The plug-in that a description describes.
orvane::PluginEntry entryOf(const std::shared_ptr<const DescribedPlugin>& plugin);

}  // namespace tool
