#pragma once

#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "Orvane/KestroAUViewController.h"
#include "Quillon/CommonAudioUnit.h"
#include "tests/support/ManualDriver.h"
#include "toolkit/Window.h"

namespace support {

/// A slot of a design that takes one unit of its column.
inline orvane::UIParameter slot(std::string key) { return {std::move(key), {}, 1, 0, 1}; }

/// A section of one column with a slot for each key.
inline std::shared_ptr<orvane::Section> section(std::string name, std::vector<std::string> keys,
                                                std::optional<std::string> state = {}) {
  orvane::UIColumn column{{}, 1};
  for (std::string& key : keys) column.params.push_back(slot(std::move(key)));
  return std::make_shared<orvane::Section>(std::vector<orvane::UIColumn>{std::move(column)},
                                           std::move(name), platform::Color::rgb(0x4ea1ff),
                                           std::move(state), std::nullopt, false, true);
}

/// A key with settings that differ from the plain ones in their kind.
inline std::shared_ptr<kestroui::ParamKey> paramKey(std::string key, kestroui::ControlType type,
                                                    std::vector<std::string> attached = {}) {
  kestroui::ParameterUISettings settings;
  settings.controlType = type;
  settings.attachedParameters = std::move(attached);
  return std::make_shared<kestroui::ParamKey>(std::move(key), std::move(settings));
}

/// A design that is given rather than derived.
class GivenDesign : public orvane::AUDesign {
 public:
  std::vector<std::shared_ptr<orvane::Page>> pages() const override { return givenPages; }
  std::vector<std::shared_ptr<kestroui::ParamKey>> paramKeys() const override { return givenKeys; }

  /// A page with one row of sections.
  void addPage(std::string title, std::vector<std::shared_ptr<orvane::Section>> sections) {
    std::vector<orvane::UISection> placements;
    placements.reserve(sections.size());
    for (auto& s : sections) placements.emplace_back(std::move(s), 1, 0, 1, 0);
    givenPages.push_back(std::make_shared<orvane::Page>(std::move(placements), std::move(title)));
  }

  std::vector<std::shared_ptr<orvane::Page>> givenPages;
  std::vector<std::shared_ptr<kestroui::ParamKey>> givenKeys;
};

/// An editor of a given design.
class TestController : public orvane::KestroAUViewController {
 public:
  explicit TestController(std::shared_ptr<orvane::AUDesign> design)
      : givenDesign(std::move(design)) {}

  std::shared_ptr<orvane::AUDesign> design() override { return givenDesign; }
  std::string productId() override { return givenProductId; }
  double footHeightRatio() override { return givenFootRatio; }
  std::vector<std::shared_ptr<kestroui::ParamKey>> foot_stack() override { return givenFoot; }
  double contentRatio() override { return givenRatio; }

  template <class Container>
  Container* control(const std::string& key) {
    return dynamic_cast<Container*>(container(key).get());
  }

  std::shared_ptr<orvane::AUDesign> givenDesign;
  std::string givenProductId;
  double givenFootRatio = 0;
  std::vector<std::shared_ptr<kestroui::ParamKey>> givenFoot;
  double givenRatio = 0.75;
};

/// The host's side: a window with the editor filling it.
class EditorWindow : private platform::WindowHost {
 public:
  /// `application`, if any, ends the responder chain.
  explicit EditorWindow(platform::Size size, platform::Application* application = nullptr)
      : application_(application), window(*this) {
    window.setSize(size);
    window.setRootViewController(&host);
  }

  void show(orvane::KestroAUViewController& editor) {
    host.addChild(editor);
    host.view().addSubview(editor.view());
    resize(window.size());
    host.appear();
  }
  void resize(platform::Size size) {
    window.setSize(size);
    for (toolkit::ViewController* child : host.children())
      child->view().setFrame({0, 0, size.width, size.height});
    window.prepareFrame();
  }
  void tap(platform::Point place, int tapCount = 1) {
    window.touchBegan(1, toolkit::Touch::Kind::finger, place, tapCount);
    window.touchEnded(1, place);
  }

 private:
  void frameWanted() override {}
  platform::Application* application() override { return application_; }
  double textWidth(std::string_view text, const platform::Font& font) override {
    return 0.55 * font.pointSize * static_cast<double>(text.size());
  }
  double now() const override { return foundation::RunLoop::main().now(); }

  platform::Application* application_;

 public:
  toolkit::ViewController host;
  toolkit::Window window;
};

}  // namespace support
