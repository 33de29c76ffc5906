// The editor's life in its host: loaded, connected, shown, resized, hidden, destroyed, in orders
// that hosts choose.

#include <gtest/gtest.h>

#include <stdexcept>

#include "KestroUI/ChoiceContainers.h"
#include "KestroUI/Theme.h"
#include "KestroUI/ValueContainers.h"
#include "tests/support/TestEditor.h"

namespace orvane {
namespace {

using platform::Rect;

class TestUnit : public quillon::CommonAudioUnit {
 public:
  TestUnit()
      : CommonAudioUnit({{.key = "a", .address = 1, .defaultValue = 0.25f, .publishesLive = true},
                         {.key = "b", .address = 2}},
                        {{{.number = 10, .name = "Ten"}, {{"a", 0.1f}}},
                         {{.number = 20, .name = "Twenty"}, {{"a", 0.2f}}},
                         {{.number = 30, .name = "Thirty"}, {{"a", 0.3f}}}}) {}
  using CommonAudioUnit::publishModulating;
  bool hasStore() const override { return store; }
  void hasUI(bool visible) override {
    CommonAudioUnit::hasUI(visible);
    told.push_back(visible);
  }

  bool store = false;
  std::vector<bool> told;
};

class ControllerLifecycleTest : public testing::Test {
 protected:
  ControllerLifecycleTest() {
    design->addPage("One", {support::section("A", {"a", "b"})});
    design->addPage("Two", {support::section("B", {"b"})});
  }
  std::unique_ptr<support::TestController> make() {
    auto made = std::make_unique<support::TestController>(design);
    made->setAudioUnit(unit.get());
    return made;
  }

  support::ManualLoop loop;
  std::unique_ptr<TestUnit> unit = std::make_unique<TestUnit>();
  std::shared_ptr<support::GivenDesign> design = std::make_shared<support::GivenDesign>();
};

TEST_F(ControllerLifecycleTest, APluginMustSayWhatItIs) {
  EXPECT_DEATH(KestroAUViewController().view(), "Must override this");
  EXPECT_DEATH(KestroAUViewController().createAudioUnit({}), "Must override this");
  unit->store = true;
  EXPECT_DEATH(make()->view(), "Must override this");
  const auto controller = make();
  controller->givenProductId = "org.example.test";
  controller->view();
  EXPECT_EQ(controller->controls().count(), 2u);
  EXPECT_EQ(controller->menuBar().productId, "org.example.test") << "for the address of its help";
}

TEST_F(ControllerLifecycleTest, AnErrorOfTheAudioUnitReachesTheHost) {
  struct Failing : support::TestController {
    using TestController::TestController;
    std::unique_ptr<platform::AudioUnit> createAudioUnit(
        const platform::AudioComponentDescription&) override {
      throw std::runtime_error("no licence");
    }
  } controller(design);
  EXPECT_THROW(controller.createAudioUnit({}), std::runtime_error);
}

TEST_F(ControllerLifecycleTest, TheAudioUnitMayComeLater) {
  support::EditorWindow window({800, 600});
  support::TestController controller(design);
  window.show(controller);
  EXPECT_EQ(controller.controls().count(), 0u);
  controller.setAudioUnit(unit.get());
  controller.connectViewWithAU();
  window.window.prepareFrame();
  EXPECT_EQ(controller.controls().count(), 2u);
  EXPECT_TRUE(controller.container("a")->isShown());
  EXPECT_EQ(unit->told, std::vector<bool>{true});
  EXPECT_EQ(controller.parameterKeyMap().at(2), "b");
}

TEST_F(ControllerLifecycleTest, AnotherAudioUnitTakesThePlaceOfTheFirst) {
  support::EditorWindow window({800, 600});
  const auto controller = make();
  window.show(*controller);
  TestUnit second;
  controller->setAudioUnit(&second);
  controller->connectViewWithAU();
  controller->connectViewWithAU();
  window.window.prepareFrame();
  unit->parameter("a")->setValue(1);
  second.parameter("a")->setValue(0.5f);
  loop.settle();
  EXPECT_EQ(controller->container("a")->value(), 0.5f);
  EXPECT_TRUE(controller->container("a")->isShown());
  EXPECT_EQ(unit->told, (std::vector<bool>{true, false}));
  EXPECT_EQ(second.told, std::vector<bool>{true});
}

TEST_F(ControllerLifecycleTest, TheAudioUnitMayGoFirst) {
  support::EditorWindow window({800, 600});
  const auto controller = make();
  window.show(*controller);
  unit->parameter("a")->setValue(1);
  const auto knob = controller->container("a");
  knob->delegate->didBeginGesture(*knob, knob->paramKeys());
  unit->publishModulating(0, true);
  loop.advance(0.5);
  EXPECT_TRUE(knob->control()->isModulated());
  unit.reset();
  loop.advance(0.5);
  EXPECT_FALSE(knob->control()->isModulated()) << "by nothing any more";
  knob->sendActions(toolkit::ControlEvent::valueChanged);
  knob->delegate->didEndGesture(*knob, knob->paramKeys());
  knob->delegate->didDoubleTap(knob->key());
  controller->randomize();
  window.host.disappear();
}

TEST_F(ControllerLifecycleTest, AppearingTwiceMakesOneDisplayLink) {
  support::EditorWindow window({800, 600});
  const auto controller = make();
  window.show(*controller);
  const auto* link = controller->displayLink();
  ASSERT_NE(link, nullptr);
  window.host.appear();
  EXPECT_EQ(controller->displayLink(), link);
  window.host.disappear();
  EXPECT_EQ(controller->displayLink(), nullptr);
  EXPECT_EQ(unit->told, (std::vector<bool>{true, false}));
  EXPECT_FALSE(loop.loop.wantsDisplayFrames());
}

TEST_F(ControllerLifecycleTest, TheDisplayLinkRestsWhileTheHostResizes) {
  support::EditorWindow window({800, 600});
  const auto controller = make();
  window.show(*controller);
  loop.advance(0.25);
  EXPECT_FALSE(controller->displayLink()->isPaused());
  for (double width = 801; width < 805; ++width) {
    window.resize({width, 600});
    EXPECT_TRUE(controller->displayLink()->isPaused());
    loop.advance(0.1);
    EXPECT_TRUE(controller->isResizing());
    EXPECT_TRUE(controller->displayLink()->isPaused());
    EXPECT_EQ(controller->settingsViewController().pageViews()[0]->frame().width,
              std::min(width, 800.0));
  }
  loop.advance(0.11);
  EXPECT_FALSE(controller->isResizing());
  EXPECT_FALSE(controller->displayLink()->isPaused());
}

TEST_F(ControllerLifecycleTest, ThePagesMayRestWhileTheHostResizes) {
  support::EditorWindow window({800, 600});
  const auto controller = make();
  controller->layoutWhileResizing = false;
  window.show(*controller);
  loop.advance(0.25);
  window.resize({780, 600});
  loop.advance(0.1);
  window.resize({400, 300});
  const auto& page = *controller->settingsViewController().pageViews()[0];
  EXPECT_EQ(page.frame().width, 780);
  loop.advance(0.21);
  window.window.prepareFrame();
  EXPECT_EQ(page.frame().width, 400);
}

TEST_F(ControllerLifecycleTest, TheContentKeepsItsProportions) {
  struct Case {
    platform::Size size;
    Rect bar, content;
    double labels;
  };
  const double c = 0.104;
  for (const Case& k :
       {Case{{1000, 600}, {100, 0, 800, 600 * c}, {100, 600 * c, 800, 600 - 600 * c}, 2},
        Case{{400, 600}, {0, 150, 400, 300 * c}, {0, 150 + 300 * c, 400, 300 - 300 * c}, 1.2}}) {
    const auto controller = make();
    support::EditorWindow window(k.size);
    window.show(*controller);
    EXPECT_EQ(controller->menuBar().frame(), k.bar);
    EXPECT_EQ(controller->mainContentFrame(), k.content);
    EXPECT_EQ(controller->settingsViewController().view().frame(), k.content);
    EXPECT_EQ(controller->container("a")->labelHRatio(), k.labels);
  }
}

TEST_F(ControllerLifecycleTest, TheFootStripHasSmallerLabels) {
  const auto controller = make();
  orvane::Section& section = *design->givenPages[0]->sections[0].section;
  section.color = platform::Color::rgb(0x00ff00);
  section.stateParameter = "a";
  controller->givenFoot = {support::paramKey("b", kestroui::ControlType::slider), nullptr};
  controller->givenFootRatio = 0.25;
  support::EditorWindow window({400, 300});
  window.show(*controller);
  EXPECT_DOUBLE_EQ(controller->container("b")->labelHRatio(), 1.2 * 0.75);
  EXPECT_EQ(controller->container("b")->frame().width, 400);
  // Although a section names it too, and nothing is laid out for ever.
  EXPECT_EQ(controller->container("b")->superview(), &controller->settingsViewController().view());
  EXPECT_EQ(controller->container("b")->control()->accentColor(), kestroui::Theme::accent);
  EXPECT_FALSE(controller->container("b")->isInactive()) << "the section is off, not the strip";
  window.window.prepareFrame();
  EXPECT_FALSE(window.window.needsFrame());
}

TEST_F(ControllerLifecycleTest, WhatTheDesignDescribesIsOfItsKindInTheFootStripToo) {
  design->givenKeys = {support::paramKey("b", kestroui::ControlType::stepper)};
  const auto controller = make();
  controller->givenFoot = {support::paramKey("b", kestroui::ControlType::slider)};
  controller->view();
  EXPECT_NE(controller->control<kestroui::StepperContainer>("b"), nullptr);
}

TEST_F(ControllerLifecycleTest, ControlsThatAreMadeInLearnModeCanBeLearned) {
  const auto controller = make();
  controller->view();
  controller->setMidiMappingEnabled(true);
  controller->connectViewWithAU();
  EXPECT_TRUE(controller->container("a")->midiMappingEnabled());
}

TEST_F(ControllerLifecycleTest, AListThatIsOpenClosesWhenTheEditorGoes) {
  design->givenKeys = {support::paramKey("a", kestroui::ControlType::dropdownList)};
  const auto controller = make();
  support::EditorWindow window({400, 300});
  window.show(*controller);
  auto& choice = *controller->control<kestroui::DropDownListContainer>("a");
  choice.setStringValues({"One", "Two"});
  choice.list().open();
  EXPECT_TRUE(choice.list().isOpen());
  window.host.disappear();
  EXPECT_FALSE(choice.list().isOpen());
}

TEST_F(ControllerLifecycleTest, TheEditorMayOpenOnAnotherPage) {
  const auto controller = make();
  controller->initPage = 1;
  support::EditorWindow window({800, 600});
  window.show(*controller);
  EXPECT_EQ(controller->settingsViewController().currentPage(), 1);
  EXPECT_TRUE(controller->container("b")->isShown());
  EXPECT_FALSE(controller->container("a")->isVisible());
}

TEST_F(ControllerLifecycleTest, EveryGestureThatBeganEnds) {
  std::vector<std::pair<platform::AUParameterAddress, bool>> gestures;
  unit->parameterTree().setGestureObserver([&](platform::AUParameterAddress address, bool began) {
    gestures.emplace_back(address, began);
  });
  auto controller = make();
  controller->view();
  auto& knob = *controller->container("a");
  knob.delegate->didBeginGesture(knob, knob.paramKeys());
  knob.delegate->didBeginGesture(knob, knob.paramKeys());
  knob.delegate->didEndGesture(knob, knob.paramKeys());
  EXPECT_EQ(gestures.size(), 1u);
  knob.delegate->didEndGesture(knob, knob.paramKeys());
  knob.delegate->didEndGesture(knob, knob.paramKeys());
  EXPECT_EQ(gestures.size(), 2u);
  knob.delegate->didBeginGesture(knob, knob.paramKeys());
  controller.reset();
  ASSERT_EQ(gestures.size(), 4u);
  EXPECT_EQ(gestures.back(), (std::pair<platform::AUParameterAddress, bool>{1, false}));
}

TEST_F(ControllerLifecycleTest, ADoubleTapAsksOrResetsUnlessItIsDisabled) {
  const auto controller = make();
  controller->view();
  unit->parameter("a")->setValue(1);
  auto& knob = *controller->container("a");
  const auto key = knob.key();
  controller->doubleTapEnabled = false;
  knob.delegate->didDoubleTap(key);
  EXPECT_EQ(controller->doubleTappedKey(), key);
  EXPECT_EQ(unit->parameter("a")->value(), 1);
  EXPECT_TRUE(controller->enterValueOverlay().isHidden());
  controller->doubleTapEnabled = true;
  knob.delegate->didDoubleTap(key);
  EXPECT_FALSE(controller->enterValueOverlay().isHidden());
  EXPECT_EQ(controller->enterValueOverlay().textField().placeholder(), "1");
  controller->enterValueOverlay().setHidden(true);
  knob.control()->setModulatedValue(0.7f);
  controller->doubleTapResetOnly = true;
  knob.delegate->didDoubleTap(nullptr);
  EXPECT_EQ(unit->parameter("a")->value(), 1);
  knob.delegate->didDoubleTap(key);
  EXPECT_EQ(unit->parameter("a")->value(), 0.25f);
  EXPECT_EQ(knob.control()->modulatedValue(), 0);
  EXPECT_TRUE(controller->enterValueOverlay().isHidden());
  controller->connectViewWithAU();
  EXPECT_EQ(controller->doubleTappedKey(), nullptr) << "what it named is gone";
  unit->parameter("a")->setValue(0.5f);
  controller->reset();
  EXPECT_EQ(unit->parameter("a")->value(), 0.5f);
}

TEST_F(ControllerLifecycleTest, OfTwoFactoryPresetsOfOneNameTheOneThatIsSetIsChosen) {
  quillon::CommonAudioUnit twins({{.key = "a", .address = 1}, {.key = "b", .address = 2}},
                                 {{{.number = 1, .name = "Twin"}, {{"a", 0.1f}}},
                                  {{.number = 2, .name = "Twin"}, {{"a", 0.2f}}}});
  support::TestController controller(design);
  controller.setAudioUnit(&twins);
  controller.view();
  for (const int number : {2, 1, 2}) {
    twins.setCurrentPreset(number);
    controller.rebuildPresetList();
    ASSERT_NE(controller.selectedPreset(), nullptr);
    EXPECT_EQ(controller.selectedPreset()->id, number);
  }
}

TEST_F(ControllerLifecycleTest, TheMenuBarStepsThroughThePresets) {
  support::EditorWindow window({800, 600});
  const auto controller = make();
  window.show(*controller);
  MenuBar& bar = controller->menuBar();
  const auto press = [&](toolkit::View& button) {
    window.tap(button.convertToRoot(button.bounds().centre()));
    return bar.presetName();
  };
  EXPECT_EQ(press(bar.arrowLeft()), "") << "beside no preset there is none";
  unit->setCurrentPreset(10);
  loop.advance(0.2);
  EXPECT_EQ(press(bar.arrowLeft()), "Twenty") << "by name: Ten, Thirty, Twenty";
  EXPECT_EQ(press(bar.arrowRight()), "Ten");
  EXPECT_EQ(press(bar.arrowLeft()), "Twenty");
  EXPECT_EQ(unit->currentPreset(), 20);
  loop.settle();
  EXPECT_FLOAT_EQ(controller->container("a")->value(), 0.2f);
  unit->setCurrentPreset(10);
  loop.advance(0.2);
  EXPECT_EQ(bar.presetName(), "Ten");
  controller->setPresetName("Mine");
  loop.advance(0.2);
  EXPECT_EQ(bar.presetName(), "Mine");
  const float before = unit->parameter("a")->value();
  press(bar.randomizeButton());
  EXPECT_NE(unit->parameter("a")->value(), before);
}

TEST_F(ControllerLifecycleTest, TheMenuBarIsLaidOutByItsHeight) {
  MenuBar bar;
  toolkit::View editor;
  editor.addSubview(bar);
  bar.setFrame({0, 0, 1000, 50});
  bar.setDisplays({"Bars", "Lines"});
  bar.setDisplays({"Other"});
  bar.draw(bar.bounds());
  const Rect name = bar.presetNameLabel().frame();
  EXPECT_NEAR(name.width, 200, 4);
  EXPECT_EQ(name.midX(), 500);
  EXPECT_EQ(bar.presetNameLabel().layer().cornerRadius(), name.height * 0.5 - 2.5);
  EXPECT_EQ(bar.arrowLeft().frame(), (Rect{name.x - 34, 0, 30, 50}));
  EXPECT_EQ(bar.arrowRight().frame(), (Rect{name.maxX() + 4, 0, 30, 50}));
  EXPECT_EQ(bar.randomizeButton().frame(), (Rect{name.maxX() + 54, 0, 50, 50}));
  EXPECT_EQ(bar.aboutButton().frame(), (Rect{1, 0, name.x - 34, 50}));
  EXPECT_EQ(bar.logoView().frame(), (Rect{949, 0, 50, 50}));
  const double left = name.maxX() + 104, room = 949 - left;
  EXPECT_EQ(bar.displayMode()->frame(), (Rect{left + room * 0.07, 1, room - 2 * room * 0.07, 48}));
  EXPECT_EQ(bar.displayMode()->titles().size(), 2u);
}

TEST_F(ControllerLifecycleTest, LinksGoToTheApplicationAtTheEndOfTheChain) {
  struct Application : platform::Application {
    bool open(const std::string& url) override {
      opened.push_back(url);
      return true;
    }
    std::vector<std::string> opened;
  } application;
  support::EditorWindow window({800, 600}, &application);
  const auto controller = make();
  controller->openURL("https://example.org/early");
  window.show(*controller);
  controller->openURL("https://example.org");
  EXPECT_EQ(application.opened, std::vector<std::string>{"https://example.org"});
}

TEST_F(ControllerLifecycleTest, ControlsMayBeHiddenByThePlugin) {
  struct Hiding : support::TestController {
    using TestController::TestController;
    bool isControlShown(const kestroui::ParamKey& key) override { return key.key() != hidden; }
    std::string hidden = "a";
  } controller(design);
  controller.setAudioUnit(unit.get());
  controller.view();
  EXPECT_TRUE(controller.container("a")->isHidden());
  EXPECT_FALSE(controller.container("b")->isHidden());
  controller.hidden = "";
  controller.updateVisibility();
  EXPECT_FALSE(controller.container("a")->isHidden());
}

TEST_F(ControllerLifecycleTest, ChildControllersComeAndGoWithTheirViews) {
  const auto controller = make();
  toolkit::ViewController child;
  controller->addViewController(child);
  EXPECT_EQ(child.view().superview(), &controller->view());
  EXPECT_EQ(child.parent(), controller.get());
  controller->removeViewController(child);
  EXPECT_EQ(child.view().superview(), nullptr);
  EXPECT_EQ(child.parent(), nullptr);
}

}  // namespace
}  // namespace orvane
