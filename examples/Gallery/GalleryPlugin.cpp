#include "examples/Gallery/GalleryPlugin.h"

#include "Orvane/KestroAUViewController.h"
#include "examples/Gallery/GalleryAudioUnit.h"
#include "examples/Gallery/GalleryPage.h"

namespace gallery {
namespace {

class GalleryDesign : public orvane::AUDesign {
 public:
  std::vector<std::shared_ptr<orvane::Page>> pages() const override {
    std::vector<std::shared_ptr<orvane::Page>> result;
    for (const GalleryPage& page : galleryPages()) result.push_back(page.page);
    return result;
  }

  std::vector<std::shared_ptr<kestroui::ParamKey>> paramKeys() const override {
    std::vector<std::shared_ptr<kestroui::ParamKey>> result = foot();
    for (const GalleryPage& page : galleryPages())
      result.insert(result.end(), page.keys.begin(), page.keys.end());
    return result;
  }

  static std::vector<std::shared_ptr<kestroui::ParamKey>> foot() {
    return {key("level", "Level"), key("motion", "Motion", kestroui::ControlType::onOff)};
  }
};

class GalleryViewController : public orvane::KestroAUViewController {
 public:
  std::shared_ptr<orvane::AUDesign> design() override { return std::make_shared<GalleryDesign>(); }
  std::string productId() override { return "org.orvane.gallery"; }
  double contentRatio() override { return 0.7; }
  double footHeightRatio() override { return 0.13; }
  std::vector<std::shared_ptr<kestroui::ParamKey>> foot_stack() override {
    return {key("level", "Level"),
            nullptr,
            nullptr,
            nullptr,
            nullptr,
            key("motion", "Motion", kestroui::ControlType::onOff)};
  }
};

}  // namespace

const orvane::PluginEntry& pluginEntry() {
  static const orvane::PluginEntry entry = [] {
    orvane::PluginEntry e;
    e.identifier = "org.orvane.gallery";
    e.name = "Gallery";
    e.version = "1.0.0";
    e.description = "Every kind of control, bound to parameters";
    e.manufacturer = "Orvane";
    e.makeAudioUnit = [] { return std::make_unique<GalleryAudioUnit>(); };
    e.makeViewController = [] { return std::make_unique<GalleryViewController>(); };
    e.preferredSize = {1024, 716};
    return e;
  }();
  return entry;
}

}  // namespace gallery
