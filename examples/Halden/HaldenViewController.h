#pragma once

#include "Orvane/KestroAUViewController.h"
#include "examples/Halden/MonitorContainer.h"

namespace halden {

class HaldenViewController : public orvane::KestroAUViewController {
 public:
  HaldenViewController();

  std::shared_ptr<orvane::AUDesign> design() override;
  platform::Image appLogo() override;
  std::string productId() override { return "org.orvane.halden"; }
  /// Where the user's presets are, whatever format or host they were saved in.
  std::string groupBundleId() override { return "group.org.orvane.halden"; }
  double contentRatio() override { return 0.68; }
  double footHeightRatio() override { return 0.14; }
  std::vector<std::shared_ptr<kestroui::ParamKey>> foot_stack() override;

  /// A rate in hertz or milliseconds and one in beats share a place; the sync switch says which.
  bool isControlShown(const kestroui::ParamKey& key) override;
  void updateParameter(platform::AUParameterAddress address) override;
  /// The display modes are those of the monitor, in their order.
  void displayChanged(int index) override;

 private:
  std::shared_ptr<MonitorContainer> monitor_ = std::make_shared<MonitorContainer>();
};

}  // namespace halden
