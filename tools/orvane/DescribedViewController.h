#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "Orvane/KestroAUViewController.h"
#include "tools/orvane/DescribedDesign.h"
#include "tools/orvane/DescribedPlugin.h"

namespace tool {

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

}  // namespace tool
