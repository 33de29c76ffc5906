#include "tools/orvane/DescribedPlugin.h"

#include <algorithm>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "KestroUI/Theme.h"
#include "Orvane/AUDesign.h"
#include "Orvane/KestroAUViewController.h"
#include "foundation/UnicodeText.h"

namespace tool {

namespace {

std::vector<quillon::ParameterDescription> parametersOf(const DescribedPlugin& plugin) {
  std::vector<quillon::ParameterDescription> parameters;
  for (const DescribedParameter& parameter : plugin.parameters)
    parameters.push_back(parameter.audio);
  return parameters;
}

std::set<std::string> keysWithAPlace(const DescribedPlugin& plugin) {
  std::set<std::string> keys;
  for (const auto& key : plugin.foot)
    if (key) keys.insert(*key);
  for (const DescribedPage& page : plugin.pages) {
    for (const orvane::UISection& placement : page.sections) {
      const orvane::Section& section = *placement.section;
      if (section.stateParameter) keys.insert(*section.stateParameter);
      if (section.feedbackParameter) keys.insert(*section.feedbackParameter);
      for (const orvane::UIColumn& column : section.stack) {
        for (const orvane::UIParameter& slot : column.params) {
          keys.insert(slot.param);
          for (const auto& sibling : slot.siblings)
            if (sibling) keys.insert(*sibling);
        }
      }
    }
  }
  return keys;
}

/// The design of a described plug-in.
class DescribedDesign : public orvane::AUDesign {
 public:
  explicit DescribedDesign(std::shared_ptr<const DescribedPlugin> plugin);

  std::vector<std::shared_ptr<orvane::Page>> pages() const override;
  /// Those that have a place in the editor. A parameter that is only attached to another's control
  /// gets none of its own.
  std::vector<std::shared_ptr<kestroui::ParamKey>> paramKeys() const override { return keys_; }
  /// The foot strip's keys, the same objects as in paramKeys.
  std::vector<std::shared_ptr<kestroui::ParamKey>> foot() const;

 private:
  std::shared_ptr<const DescribedPlugin> plugin_;
  std::vector<std::shared_ptr<kestroui::ParamKey>> keys_;
};

DescribedDesign::DescribedDesign(std::shared_ptr<const DescribedPlugin> plugin)
    : plugin_(std::move(plugin)) {
  const std::set<std::string> keys = keysWithAPlace(*plugin_);
  for (const DescribedParameter& parameter : plugin_->parameters)
    if (keys.contains(parameter.audio.key))
      keys_.push_back(
          std::make_shared<kestroui::ParamKey>(parameter.audio.key, parameter.settings));
}

std::vector<std::shared_ptr<orvane::Page>> DescribedDesign::pages() const {
  std::vector<std::shared_ptr<orvane::Page>> pages;
  for (const DescribedPage& page : plugin_->pages)
    pages.push_back(std::make_shared<orvane::Page>(page.sections, page.title));
  return pages;
}

std::vector<std::shared_ptr<kestroui::ParamKey>> DescribedDesign::foot() const {
  std::map<std::string, std::shared_ptr<kestroui::ParamKey>> byKey;
  for (const auto& key : keys_) byKey[key->key()] = key;
  std::vector<std::shared_ptr<kestroui::ParamKey>> foot;
  for (const auto& key : plugin_->foot) foot.push_back(key ? byKey[*key] : nullptr);
  return foot;
}

/// The editor of a described plug-in.
class DescribedViewController : public orvane::KestroAUViewController {
 public:
  explicit DescribedViewController(std::shared_ptr<const DescribedPlugin> plugin)
      : plugin_(std::move(plugin)), design_(std::make_shared<DescribedDesign>(plugin_)) {
    presetViewUseFilters = plugin_->presetViewUseFilters;
    allowImportAndExport = plugin_->allowImportAndExport;
  }

  std::shared_ptr<orvane::AUDesign> design() override { return design_; }
  std::string productId() override { return plugin_->productId; }
  std::string groupBundleId() override {
    return plugin_->productId.empty() ? "" : "group." + plugin_->productId;
  }
  /// The first letter of the name.
  platform::Image appLogo() override;
  orvane::MakerAddresses addresses() override { return plugin_->addresses; }
  std::vector<std::string> categories() override { return plugin_->categories; }
  double contentRatio() override { return plugin_->contentRatio; }
  double footHeightRatio() override { return plugin_->footHeightRatio; }
  std::vector<std::shared_ptr<kestroui::ParamKey>> foot_stack() override { return design_->foot(); }

  void viewDidLoad() override;

 private:
  std::shared_ptr<const DescribedPlugin> plugin_;
  std::shared_ptr<DescribedDesign> design_;
};

platform::Image DescribedViewController::appLogo() {
  const std::string& name = plugin_->name;
  return {{24, 24},
          [letter = name.substr(0, foundation::nextCharacter(name, 0))](platform::Canvas& canvas,
                                                                        platform::Color) {
            canvas.fillRoundedRect({1, 1, 22, 22}, 5, kestroui::Theme::surfaceRaised);
            canvas.drawText(letter, {platform::FontWeight::semiBold, 13, false}, {3, 3, 18, 18},
                            platform::TextAlignment::centre, kestroui::Theme::accent);
          }};
}

void DescribedViewController::viewDidLoad() {
  KestroAUViewController::viewDidLoad();
  menuBar().areDisplaysIconWaveforms = plugin_->areDisplaysIconWaveforms;
  if (!plugin_->displays.empty()) menuBar().setDisplays(plugin_->displays);
}

}  // namespace

DescribedAudioUnit::DescribedAudioUnit(const DescribedPlugin& plugin)
    : CommonAudioUnit(parametersOf(plugin), plugin.factoryPresets),
      hasStore_(!plugin.productId.empty()),
      presetExtension_(plugin.presetExtension) {}

bool DescribedAudioUnit::setLive(std::string_view key, float value) {
  const auto index = indexOfKey(key);
  if (index) publishLive(*index, value);
  return index.has_value();
}

bool DescribedAudioUnit::setModulating(std::string_view key, bool modulating) {
  const auto index = indexOfKey(key);
  if (index) publishModulating(*index, modulating);
  return index.has_value();
}

void DescribedAudioUnit::render(const platform::RenderBlock& block) {
  for (float* output : block.outputs) std::fill_n(output, block.frames, 0.0f);
}

orvane::PluginEntry entryOf(const std::shared_ptr<const DescribedPlugin>& plugin) {
  constexpr double longSide = 1024;
  orvane::PluginEntry entry;
  entry.identifier = plugin->productId;
  entry.name = plugin->name;
  entry.version = plugin->version;
  entry.build = plugin->build;
  entry.storeIdentifier = plugin->storeIdentifier;
  entry.description = "A described plug-in, without sound.";
  entry.makeAudioUnit = [plugin] { return std::make_unique<DescribedAudioUnit>(*plugin); };
  entry.makeViewController = [plugin] { return std::make_unique<DescribedViewController>(plugin); };
  const double ratio = plugin->contentRatio;
  entry.preferredSize = {ratio > 1 ? longSide / ratio : longSide,
                         ratio > 1 ? longSide : longSide * ratio};
  return entry;
}

}  // namespace tool
