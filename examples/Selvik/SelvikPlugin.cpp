#include "examples/Selvik/SelvikPlugin.h"

#include "Orvane/KestroAUViewController.h"
#include "examples/Selvik/SelvikAudioUnit.h"

namespace selvik {
namespace {

using kestroui::ControlType;
using kestroui::ParamKey;
using orvane::UIColumn;
using platform::Color;

/// One page of four sections: the echo and how it looks above, what makes it step aside below.
class SelvikDesign : public orvane::AUDesign {
 public:
  std::vector<std::shared_ptr<orvane::Page>> pages() const override {
    // Both forms of the time share one place; the controller shows one of them.
    const UIColumn time{{{"time", {"division"}, 1, 0, 1}}, 1};
    const UIColumn sync{{{"sync", {}, 0.5, 0.26, 1}}, 0.5};
    const auto echo = section("ECHO", Color::rgb(0x74b3e8),
                              {time, sync, single("feedback"), single("lowCut"), single("mix")});
    const auto scope = section("SOUND AND ECHO", Color::rgb(0xa9b4c4), {single("scope")});
    const UIColumn ears{{{"external", {}, 1, 0, 1}, {"listen", {}, 1, 0, 1}}, 0.7};
    const auto chain = section("SIDE CHAIN", Color::rgb(0x9cc27a),
                               {{{{"SidechainLowPassFrequency", {}, 2, 0, 1}}, 3}, ears});
    const auto ducking =
        section("DUCKING", Color::rgb(0xe8b66b), {single("threshold", 2.2), single("release")});
    return {
        std::make_shared<orvane::Page>(std::vector<orvane::UISection>{{echo, 4.5, 0, 1, 0},
                                                                      {scope, 2.5, 0, 1, 0},
                                                                      {chain, 3.7, 1, 1.15, 0},
                                                                      {ducking, 3.3, 1, 1.15, 0}},
                                       "")};
  }

  std::vector<std::shared_ptr<ParamKey>> paramKeys() const override {
    // What is not named here is driven by the control of another: its name is the parameter's own.
    return {key("time", "Time"),
            key("division", "Time", ControlType::dropdownList),
            key("sync", "Sync", ControlType::onOff),
            key("feedback", "Feedback"),
            key("lowCut", "Range", ControlType::doubleSlider, {"highCut"}),
            key("mix", "Mix"),
            key("scope", "Time", ControlType::multiOscilloscope),
            key("SidechainLowPassFrequency", "Listens to", ControlType::doubleFilter,
                {"SidechainLowPassResonance", "SidechainHighPassFrequency",
                 "SidechainHighPassResonance"}),
            key("external", "External", ControlType::onOff),
            key("listen", "Listen", ControlType::onOff),
            key("threshold", "Threshold", ControlType::compressor, {"ratio", "reduction"}),
            key("release", "Release")};
  }

 private:
  static UIColumn single(std::string key, double weight = 1) {
    return {{{std::move(key), {}, 1, 0, 1}}, weight};
  }
  static std::shared_ptr<orvane::Section> section(std::string name, Color color,
                                                  std::vector<UIColumn> columns) {
    return std::make_shared<orvane::Section>(std::move(columns), std::move(name), color,
                                             std::nullopt, std::nullopt, false, true);
  }
  static std::shared_ptr<ParamKey> key(std::string name, std::string title,
                                       ControlType type = ControlType::knob,
                                       std::vector<std::string> attached = {}) {
    return std::make_shared<ParamKey>(
        std::move(name),
        kestroui::ParameterUISettings(std::move(title), type, std::move(attached), false, {},
                                      {false, false}, {}, std::nullopt));
  }
};

class SelvikViewController : public orvane::KestroAUViewController {
 public:
  SelvikViewController() { presetViewUseFilters = allowImportAndExport = true; }
  std::shared_ptr<orvane::AUDesign> design() override { return std::make_shared<SelvikDesign>(); }
  std::string productId() override { return "org.orvane.selvik"; }
  std::string groupBundleId() override { return "group.org.orvane.selvik"; }
  double contentRatio() override { return 0.6; }

  bool isControlShown(const ParamKey& key) override {
    if (key.key() != "time" && key.key() != "division") return true;
    return (parameters()["sync"]->value() >= 0.5f) == (key.key() == "division");
  }
  void updateParameter(platform::AUParameterAddress address) override {
    KestroAUViewController::updateParameter(address);
    if (address == sync) updateVisibility();
  }
};

}  // namespace

const orvane::PluginEntry& pluginEntry() {
  static const orvane::PluginEntry entry{"org.orvane.selvik",
                                         "Selvik",
                                         "1.0.0",
                                         "An echo that steps aside",
                                         "Orvane",
                                         {},
                                         [] { return std::make_unique<SelvikAudioUnit>(); },
                                         [] { return std::make_unique<SelvikViewController>(); },
                                         {900, 540}};
  return entry;
}

}  // namespace selvik
