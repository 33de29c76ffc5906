#pragma once

#include <memory>
#include <vector>

#include "KestroUI/ParamKey.h"
#include "Orvane/Page.h"
#include "Orvane/ParameterUISettings.h"

namespace orvane {

/// What a plug-in's editor shows: pages of sections of columns of parameters, named by key, and
/// how the control of each parameter is built. Pure data; a plug-in derives from it:
///
///     std::vector<std::shared_ptr<Page>> pages() const override {
///       auto tone = std::make_shared<Section>(
///           std::vector<UIColumn>{{{{"cutoff", {}, 1, 0, 1}, {"resonance", {}, 1, 0, 1}}, 1}},
///           "FILTER", Color::rgb(0x4ea1ff), std::nullopt, std::nullopt, false, true);
///       return {std::make_shared<Page>(std::vector<UISection>{{tone, 1, 0, 1, 0}}, "TONE")};
///     }
class AUDesign {
 public:
  virtual ~AUDesign() = default;

  /// The pages in their order, built anew by each call: callers keep the result. One empty page
  /// in the base class.
  virtual std::vector<std::shared_ptr<Page>> pages() const;

  /// How each parameter is shown. A parameter that is used on a page and not named here gets the
  /// plain control for its unit. Empty in the base class.
  virtual std::vector<std::shared_ptr<kestroui::ParamKey>> paramKeys() const;
};

}  // namespace orvane
