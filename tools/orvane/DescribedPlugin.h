#pragma once

#include <memory>
#include <optional>
#include <string>
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

/// The plug-in that a description describes.
orvane::PluginEntry entryOf(std::shared_ptr<const DescribedPlugin> plugin);

}  // namespace tool
