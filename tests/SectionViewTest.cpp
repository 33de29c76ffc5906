// A section places its controls by weights that scale with its size.

#include <gtest/gtest.h>

#include "KestroUI/Theme.h"
#include "KestroUI/ValueContainers.h"
#include "Orvane/SectionView.h"
#include "tests/support/TestEditor.h"

namespace orvane {
namespace {

using kestroui::ControlType;
using platform::Rect;

class SectionViewTest : public testing::Test {
 protected:
  SectionViewTest() {
    for (const char* name : {"a", "b", "c", "d", "state", "feedback"}) add(name);
    controls->addKey(support::paramKey("bare", ControlType::none));
  }
  kestroui::Container& add(const std::string& name) {
    const auto key = support::paramKey(name, ControlType::knob);
    const auto container = std::make_shared<kestroui::KnobContainer>();
    controls->addKey(key);
    controls->set(key, container);
    return *container;
  }
  kestroui::Container& control(const std::string& name) { return *controls->container(name); }

  /// Shows a section in a page of height 500, with a title band of 44.
  SectionView& show(std::vector<UIColumn> columns, platform::Size size = {200, 244}) {
    section->stack = std::move(columns);
    page.setFrame({0, 0, 800, 500});
    page.addSubview(view);
    view.setFrame({0, 0, size.width, size.height});
    view.setIsVisible(true);
    view.draw(view.bounds());
    return view;
  }

  std::shared_ptr<ControlCollection> controls = std::make_shared<ControlCollection>();
  std::shared_ptr<Section> section = support::section("OSC", {});
  toolkit::View page;
  SectionView view{section, controls};
};

TEST_F(SectionViewTest, SlotsFollowTheWeightsOfColumnsAndRows) {
  struct Case {
    const char* what;
    std::vector<UIColumn> columns;
    std::vector<std::pair<const char*, Rect>> frames;
  };
  const std::vector<Case> cases{
      {"half the width of one of two columns",
       {{{{"a", {}, 1, 0, 0.5}}, 1}, {{{"b", {}, 1, 0, 1}}, 1}},
       {{"a", {0, 44, 51, 201}}, {"b", {100, 44, 101, 201}}}},
      {"the highest column sets the unit",
       {{{{"a", {}, 1, 0, 1}}, 1}, {{{"b", {}, 1, 0, 1}, {"c", {}, 3, 0, 1}}, 3}},
       {{"a", {0, 44, 51, 51}}, {"b", {50, 44, 151, 51}}, {"c", {50, 94, 151, 151}}}},
      {"an offset pushes all that follows",
       {{{{"a", {}, 1, 0, 1}, {"b", {}, 1, 0.5, 1}, {"c", {}, 1.5, 0, 1}}, 1}},
       {{"a", {0, 44, 201, 51}}, {"b", {0, 119, 201, 51}}, {"c", {0, 169, 201, 76}}}},
      {"siblings share the place",
       {{{{"a", {"b", std::nullopt, "c"}, 1, 0, 1}, {"d", {}, 1, 0, 1}}, 1}},
       {{"b", {0, 44, 201, 101}}, {"c", {0, 44, 201, 101}}, {"d", {0, 144, 201, 101}}}},
      {"columns without weight", {{{{"a", {}, 0, 0, 1}}, 0}}, {{"a", {0, 44, 1, 1}}}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    show(c.columns);
    for (const auto& [name, frame] : c.frames) {
      EXPECT_EQ(control(name).frame(), frame) << name;
      EXPECT_EQ(control(name).superview(), &view) << name;
      EXPECT_TRUE(control(name).isVisible()) << name;
    }
  }
}

TEST_F(SectionViewTest, TheTitleBandIsAShareOfThePage) {
  section->stateParameter = "state";
  section->feedbackParameter = "feedback";
  show({});
  EXPECT_EQ(view.title(), "OSC");
  EXPECT_EQ(control("state").frame(), (Rect{0, 0, 44, 44}));
  EXPECT_EQ(control("feedback").frame(), (Rect{200 - 0.6 * 44, 0, 0.6 * 44, 0.6 * 44}));
  EXPECT_EQ(control("state").superview(), &view);
  EXPECT_FALSE(control("state").displayTitle()) << "the section has one";
  const auto& label = dynamic_cast<const toolkit::Label&>(*view.subviews()[0]);
  EXPECT_EQ(label.frame(), (Rect{0, 2, 200, 44}));
  EXPECT_EQ(label.text(), "OSC");
  EXPECT_EQ(label.font(), kestroui::Theme::titleFont);
  view.setUsePages(true);
  page.setFrame({0, 0, 800, 100});
  view.draw(view.bounds());
  EXPECT_EQ(label.font(), kestroui::Theme::smallTitleFont.withSize(0.65 * 8));
}

TEST_F(SectionViewTest, ControlsMayTakeTheTitlesPlace) {
  section->fillNameSpace = true;
  show({{{{"a", {}, 1, 0, 1}}, 1}});
  EXPECT_EQ(control("a").frame(), (Rect{0, 0, 201, 245}));
}

TEST_F(SectionViewTest, AStateBelowOneMakesTheOtherControlsInactive) {
  section->stateParameter = "state";
  show({{{{"a", {"b"}, 1, 0, 1}, {"state", {}, 1, 0, 1}}, 1}});
  for (const auto& [value, inactive] :
       {std::pair{0.0f, true}, {0.5f, true}, {0.9f, true}, {1.0f, false}}) {
    control("state").setValue(value);
    view.updateState();
    EXPECT_EQ(control("a").isInactive(), inactive) << value;
    EXPECT_EQ(control("b").isInactive(), inactive) << value;
    EXPECT_FALSE(control("state").isInactive());
  }
}

TEST_F(SectionViewTest, KeysOfTheDesignMustBeKnown) {
  show({{{{"bare", {}, 1, 0, 1}, {"a", {}, 1, 0, 1}}, 1}});
  EXPECT_EQ(view.container("bare"), nullptr);
  EXPECT_EQ(control("a").frame(), (Rect{0, 144, 201, 101}));
  EXPECT_DEATH(view.container("zzz"), "zzz");
  section->stack[0].params[0].param = "zzz";
  EXPECT_DEATH(view.setIsVisible(true), "zzz");
  EXPECT_EQ(SectionView(section, nullptr).container("zzz"), nullptr);
}

TEST_F(SectionViewTest, ControlsGoToTheSectionThatIsShown) {
  const auto other = support::section("B", {"a"});
  other->color = platform::Color::rgb(0x00ff00);
  SectionView second(other, controls);
  page.addSubview(second);
  show({{{{"a", {"b"}, 1, 0, 1}}, 1}});
  EXPECT_EQ(control("a").control()->accentColor(), section->color);
  view.setIsVisible(false);
  EXPECT_FALSE(control("a").isVisible());
  second.setIsVisible(true);
  EXPECT_EQ(control("a").superview(), &second);
  EXPECT_EQ(control("b").superview(), &view);
  EXPECT_EQ(control("a").control()->accentColor(), other->color);
  EXPECT_TRUE(control("a").isVisible());
  EXPECT_FALSE(control("b").isVisible());
}

TEST_F(SectionViewTest, ItTintsItselfAndTheControlsThatHaveNoColourOfTheirOwn) {
  const platform::Color own = platform::Color::rgb(0x00ff00);
  kestroui::ParameterUISettings settings;
  settings.controlColor = own;
  const auto key = std::make_shared<kestroui::ParamKey>("own", settings);
  controls->addKey(key);
  controls->set(key, std::make_shared<kestroui::KnobContainer>());
  control("own").setControlColor(own);
  settings = {};
  settings.colors = {own};
  const auto several = std::make_shared<kestroui::ParamKey>("several", settings);
  controls->addKey(several);
  controls->set(several, std::make_shared<kestroui::KnobContainer>());
  control("several").setColors({own});
  for (const bool displayGradient : {true, false}) {
    section->displayGradient = displayGradient;
    show({{{{"a", {}, 1, 0, 1}, {"own", {"several"}, 1, 0, 1}}, 1}});
    EXPECT_EQ(view.layer().sublayers().front()->isHidden(), !displayGradient);
  }
  EXPECT_EQ(control("a").control()->accentColor(), section->color);
  EXPECT_EQ(control("own").control()->accentColor(), own);
  EXPECT_EQ(control("several").control()->accentColor(), own);
}

TEST_F(SectionViewTest, OfTwoShownSectionsTheFirstKeepsASwitchThatBothName) {
  section->stateParameter = "state";
  const auto other = support::section("B", {"b"}, "state");
  SectionView second(other, controls);
  page.addSubview(second);
  show({{{{"a", {}, 1, 0, 1}}, 1}});
  second.setFrame({200, 0, 200, 244});
  second.setIsVisible(true);
  second.draw(second.bounds());
  EXPECT_EQ(control("state").superview(), &view);
  EXPECT_EQ(control("state").frame(), (Rect{0, 0, 44, 44}));
  view.setIsVisible(false);
  second.draw(second.bounds());
  EXPECT_EQ(control("state").superview(), &second);
}

TEST_F(SectionViewTest, AControlLooksAsThePlaceWantsWhereItStands) {
  section->stateParameter = "state";
  const auto other = support::section("B", {"state", "a"});
  auto second = std::make_unique<SectionView>(other, controls);
  page.addSubview(*second);
  control("c").setDisplayTitle(false);
  section->feedbackParameter = "c";
  show({{{{"a", {}, 1, 0, 1}}, 1}});
  control("state").setValue(0);
  const auto showSecond = [&](bool shown) {
    view.setIsVisible(!shown);
    second->setIsVisible(shown);
    view.setIsVisible(!shown);
    SectionView& front = shown ? *second : view;
    front.draw(front.bounds());
  };
  for (int round = 0; round < 2; ++round) {
    showSecond(false);
    EXPECT_FALSE(control("state").displayTitle()) << round;
    EXPECT_TRUE(control("a").isInactive()) << round;
    EXPECT_FALSE(control("c").displayTitle()) << round;
    showSecond(true);
    EXPECT_TRUE(control("state").displayTitle()) << "a slot has room for it";
    EXPECT_FALSE(control("a").isInactive()) << "this section has no switch";
    view.updateState();
    EXPECT_FALSE(control("a").isInactive()) << "it stands in the other one";
  }
  // What is off in both of two sections is off, and on in the one that is on.
  other->stateParameter = "b";
  control("b").setValue(0);
  showSecond(true);
  EXPECT_TRUE(control("a").isInactive());
  control("b").setValue(1);
  second->updateState();
  view.updateState();
  EXPECT_FALSE(control("a").isInactive());
  EXPECT_FALSE(control("b").displayTitle());
  other->feedbackParameter = "c";
  showSecond(true);
  EXPECT_EQ(control("c").superview(), second.get());
  second.reset();
  EXPECT_TRUE(control("b").displayTitle());
  EXPECT_FALSE(control("c").displayTitle()) << "it never had one";
}

TEST_F(SectionViewTest, AControlThatIsFreeOnlyLaterIsGreyToo) {
  section->stateParameter = "state";
  SectionView second(support::section("B", {"b"}), controls);
  page.addSubview(second);
  second.setIsVisible(true);
  show({{{{"a", {"b"}, 1, 0, 1}}, 1}});
  EXPECT_EQ(control("b").superview(), &second);
  EXPECT_FALSE(control("b").isInactive());
  second.setIsVisible(false);
  view.draw(view.bounds());
  EXPECT_EQ(control("b").superview(), &view);
  EXPECT_TRUE(control("b").isInactive());
}

TEST_F(SectionViewTest, ASwitchThatAlsoHasASlotOfItsSectionKeepsItsTitle) {
  section->stateParameter = "state";
  show({{{{"a", {}, 1, 0, 1}, {"state", {}, 1, 0, 1}}, 1}});
  EXPECT_EQ(control("state").frame(), (Rect{0, 144, 201, 101}));
  EXPECT_TRUE(control("state").displayTitle());
}

TEST_F(SectionViewTest, AReplacedControlTakesThePlaceOfTheOld) {
  show({{{{"a", {}, 1, 0, 1}, {"b", {}, 1, 0, 1}}, 1}});
  kestroui::Container& fresh = add("a");
  view.setIsVisible(true);
  view.draw(view.bounds());
  EXPECT_EQ(fresh.frame(), (Rect{0, 44, 201, 101}));
  // The keyboard goes from control to control in the order of the design.
  ASSERT_EQ(view.subviews().size(), 3u);
  EXPECT_EQ(view.subviews()[1], &fresh);
  EXPECT_EQ(view.subviews()[2], &control("b"));
}

TEST_F(SectionViewTest, ItWaitsForACollectionThatIsNotFilledYet) {
  const auto later = std::make_shared<ControlCollection>();
  SectionView early(support::section("S", {"a"}), later);
  page.addSubview(early);
  early.setIsVisible(true);
  early.draw(early.bounds());
  for (const auto& [name, key] : controls->allParamKeys()) {
    later->addKey(key);
    later->set(key, (*controls)[key]);
  }
  early.setIsVisible(true);
  EXPECT_EQ(control("a").superview(), &early);
}

}  // namespace
}  // namespace orvane
