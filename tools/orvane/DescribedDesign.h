#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "Orvane/AUDesign.h"
#include "tools/orvane/DescribedPlugin.h"

namespace tool {

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

}  // namespace tool
