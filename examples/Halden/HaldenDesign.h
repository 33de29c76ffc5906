#pragma once

#include <memory>
#include <vector>

#include "Orvane/AUDesign.h"

namespace halden {

class MonitorContainer;

/// Six pages, each a grid of two rows, and a foot strip for what every patch needs.
class HaldenDesign : public orvane::AUDesign {
 public:
  /// Shows the sound on `monitor`, or on one of its own.
  explicit HaldenDesign(std::shared_ptr<MonitorContainer> monitor = nullptr);

  std::vector<std::shared_ptr<orvane::Page>> pages() const override;
  std::vector<std::shared_ptr<kestroui::ParamKey>> paramKeys() const override;
  static std::vector<std::shared_ptr<kestroui::ParamKey>> foot();

 private:
  std::shared_ptr<MonitorContainer> monitor_;
};

}  // namespace halden
