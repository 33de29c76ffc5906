#pragma once

#include <memory>
#include <vector>

#include "Orvane/AUDesign.h"

namespace halden {

/// Five pages, each a grid of two rows, and a foot strip for what every patch needs.
class HaldenDesign : public orvane::AUDesign {
 public:
  std::vector<std::shared_ptr<orvane::Page>> pages() const override;
  std::vector<std::shared_ptr<kestroui::ParamKey>> paramKeys() const override;
  static std::vector<std::shared_ptr<kestroui::ParamKey>> foot();
};

}  // namespace halden
