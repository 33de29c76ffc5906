// One editor in the host without a display: what its hands reach, and what it counts.

#include "backends/headless/HeadlessHost.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "KestroUI/Container.h"
#include "foundation/SharedURLSession.h"
#include "tests/support/TestEditor.h"
#include "toolkit/TextField.h"

namespace headless {
namespace {

using Events = std::vector<Event>;

orvane::PluginEntry entry() {
  orvane::PluginEntry entry;
  entry.makeAudioUnit = [] {
    return std::make_unique<quillon::CommonAudioUnit>(std::vector<quillon::ParameterDescription>{
        {.key = "gain", .address = 1, .maxValue = 2},
        {.key = "mix", .address = 2, .defaultValue = 0.5f},
    });
  };
  entry.makeViewController = [] {
    auto design = std::make_shared<support::GivenDesign>();
    design->addPage("", {support::section("OUT", {"gain", "mix"})});
    return std::make_unique<support::TestController>(design);
  };
  entry.preferredSize = {400, 300};
  return entry;
}

class HeadlessHostTest : public testing::Test {
 protected:
  float value(const std::string& key) { return host.audioUnit().parameter(key)->value(); }
  kestroui::Container& container(const std::string& key) { return *host.editor().container(key); }
  platform::Point centre(const std::string& key) {
    return container(key).control()->frameInRoot().centre();
  }

  HeadlessRunLoop loop;
  HeadlessHost host{loop, entry()};
};

TEST(AudioUnitFactoryTest, TheControllerHasTheLastWordOnItsAudioUnit) {
  struct Own : support::TestController {
    using TestController::TestController;
    std::unique_ptr<platform::AudioUnit> createAudioUnit(
        const platform::AudioComponentDescription& description) override {
      auto unit = TestController::createAudioUnit(description);
      unit->setParameter("gain", static_cast<float>(description.componentSubType));
      return unit;
    }
  };
  orvane::PluginEntry own = entry();
  own.component.componentSubType = 2;
  own.makeViewController = [] {
    return std::make_unique<Own>(std::make_shared<support::GivenDesign>());
  };
  // Neither a run loop nor a window is needed.
  EXPECT_EQ(own.createAudioUnit()->parameter("gain")->value(), 2);
  HeadlessRunLoop loop;
  HeadlessHost host(loop, own);
  EXPECT_EQ(host.audioUnit().parameter("gain")->value(), 2);
}

TEST_F(HeadlessHostTest, LaysTheEditorOutAtItsPreferredSizeAndAtAnyOther) {
  EXPECT_EQ(host.editor().view().frame().size(), (platform::Size{400, 300}));
  host.appear();
  host.resize({800, 600});
  EXPECT_EQ(host.editor().view().frame().size(), (platform::Size{800, 600}));
  EXPECT_GT(container("gain").frameInRoot().maxX(), 400);
}

TEST_F(HeadlessHostTest, AutomationFromAnotherThreadMovesTheControl) {
  host.appear();
  EXPECT_TRUE(host.automate("gain", 1.5f));
  EXPECT_FLOAT_EQ(value("gain"), 1.5f);
  EXPECT_FLOAT_EQ(container("gain").value(), 0.75f);
  EXPECT_FALSE(host.automate("nobody", 1));
}

TEST_F(HeadlessHostTest, AFingerThatDragsAKnobMovesItsParameter) {
  host.appear();
  host.drag(centre("mix"), {0, -40});
  EXPECT_GT(value("mix"), 0.5f);
  EXPECT_EQ(value("gain"), 0);
}

TEST_F(HeadlessHostTest, AFingerThatIsHeldMovesOnFromWhereItIsBesideOthers) {
  host.appear();
  EXPECT_FALSE(host.move({0, -10}));
  EXPECT_FALSE(host.lift());
  EXPECT_TRUE(host.press(centre("mix")));
  EXPECT_FALSE(host.press(centre("gain")));
  EXPECT_TRUE(host.move({0, -10}));
  host.drag(centre("gain"), {0, -40});
  EXPECT_GT(value("gain"), 0);
  EXPECT_TRUE(host.move({0, -10}));
  EXPECT_TRUE(host.lift());
  const float moved = value("mix");
  EXPECT_TRUE(host.automate("mix", 0.5f));
  host.drag(centre("mix"), {0, -20});
  EXPECT_NEAR(moved, value("mix"), 1e-5f);
}

TEST_F(HeadlessHostTest, TheWheelMovesTheControlBelowItAndSaysSo) {
  host.appear();
  EXPECT_TRUE(host.turnWheel(centre("mix"), 1));
  EXPECT_NE(value("mix"), 0.5f);
  EXPECT_FALSE(host.turnWheel({1, 1}, 1));
}

TEST_F(HeadlessHostTest, AKeyThatNothingUsesGoesBackToTheHost) {
  host.appear();
  platform::KeyEvent key;
  key.text = "q";
  EXPECT_FALSE(host.pressKey(key));
}

TEST_F(HeadlessHostTest, AnIdleEditorRepaintsNothingAndOneKnobOnlyItself) {
  host.appear();
  loop.advance(1);
  host.takeFrames();
  loop.advance(1);
  const FrameCount idle = host.takeFrames();
  EXPECT_EQ(idle.displayFrames, 60u);
  EXPECT_EQ(idle.repaints, 0u);
  EXPECT_EQ(idle.repaintedArea, 0);

  host.automate("gain", 1);
  const FrameCount one = host.takeFrames();
  EXPECT_GE(one.repaints, 1u);
  EXPECT_GT(one.repaintedArea, 0);
  const platform::Rect knob = container("gain").frame();
  EXPECT_LE(one.repaintedArea, (knob.width + 4) * (knob.height + 4));
  EXPECT_EQ(host.takeFrames(), FrameCount());
}

TEST_F(HeadlessHostTest, RecordsLinksThatTheEditorOpens) {
  host.appear();
  host.editor().openURL("https://example.org/help");
  EXPECT_EQ(host.application()->takeEvents(),
            (Events{{"openURL", {{"url", "https://example.org/help"}}}}));
  EXPECT_TRUE(host.application()->takeEvents().empty());
}

TEST_F(HeadlessHostTest, AnswersWhatThePickerAndTheNetworkWereAskedFor) {
  struct Delegate : platform::DocumentPickerDelegate, platform::WeakTarget {
    std::vector<std::string> picked;
    void documentPickerDidPick(const std::vector<std::string>& paths) override { picked = paths; }
  } delegate;
  HeadlessApplication& application = *host.application();
  EXPECT_FALSE(application.pick({"a"})) << "none is open";
  application.presentation()->present(platform::DocumentPicker{{"preset"}, true, &delegate});
  EXPECT_EQ(application.takeEvents(), (Events{{"picker", {}, {"preset"}, true}}));
  EXPECT_TRUE(application.pick({"a", "b"}));
  EXPECT_EQ(delegate.picked, (std::vector<std::string>{"a", "b"}));
  EXPECT_FALSE(application.pick({"c"})) << "it has closed";

  std::string answers;
  const auto ask = [&](const std::string& url) {
    auto task = foundation::SharedURLSession::current().dataTask(
        url, [&, url](const platform::URLSession::Answer&) { answers += url; });
    task->resume();
    return task;
  };
  const auto first = ask("1"), second = ask("2");
  ask("gone");
  const auto third = ask("3");
  for (int i = 0; i < 3; ++i) EXPECT_TRUE(application.session().respond({}));
  EXPECT_FALSE(application.session().respond({}));
  EXPECT_EQ(answers, "123") << "in their order, but for what was called off";
  EXPECT_EQ(application.takeEvents().size(), 4u);
}

TEST_F(HeadlessHostTest, TypesInTheFieldThatHasTheKeyboard) {
  host.appear();
  toolkit::TextField field;
  host.editor().view().addSubview(field);
  field.becomeFirstResponder();
  host.type("W\u00e4r me");
  EXPECT_EQ(field.text(), "W\u00e4r me");
}

TEST_F(HeadlessHostTest, TwoEditorsShareOneLoopAndMayGoInAnyOrder) {
  auto second = std::make_unique<HeadlessHost>(loop, entry());
  host.appear();
  second->appear();
  second->automate("gain", 2);
  EXPECT_EQ(value("gain"), 0);
  second.reset();
  loop.advance(0.5);
  EXPECT_TRUE(host.automate("gain", 1));
}

}  // namespace
}  // namespace headless
