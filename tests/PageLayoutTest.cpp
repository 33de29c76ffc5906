// Pages, tabs and the foot strip are placed by arithmetic that scales with the editor.

#include <gtest/gtest.h>

#include "KestroUI/ValueContainers.h"
#include "Orvane/SettingsViewController.h"
#include "tests/support/TestEditor.h"

namespace orvane {
namespace {

using platform::Rect;

std::shared_ptr<Section> named(const std::string& name) { return support::section(name, {}); }

/// The frames of the sections "0", "1", ... of a page of 403 by 300.
std::vector<Rect> framesOf(std::vector<UISection> placements) {
  for (std::size_t i = 0; i < placements.size(); ++i)
    placements[i].section = named(std::to_string(i));
  toolkit::View content;
  PageView view(std::make_shared<Page>(std::move(placements), "P"), nullptr);
  content.addSubview(view);
  view.setFrame({0, 0, 403, 300});
  view.draw(view.bounds());
  std::vector<Rect> frames;
  for (std::size_t i = 0; i < view.sectionViews().size(); ++i)
    frames.push_back(view.sectionViews().at(std::to_string(i))->frame());
  return frames;
}

TEST(PageView, RowsBeginBelowTheSectionThatTheyName) {
  // Four sections leave 403 - 3 points, whatever their rows.
  EXPECT_EQ(framesOf({{nullptr, 1, 0, 1, 0},
                      {nullptr, 1, 0, 1, 0},
                      {nullptr, 1, 1, 1, 1},
                      {nullptr, 1, 1, 1, 0}}),
            (std::vector<Rect>{
                {0, 0, 200, 150}, {201, 0, 200, 150}, {201, 150, 200, 150}, {402, 150, 200, 150}}));
  // From the third row on the bottoms add up, and a row number may come again.
  EXPECT_EQ(framesOf({{nullptr, 1, 0, 1, 0},
                      {nullptr, 1, 1, 1, 0},
                      {nullptr, 1, 2, 1, 0},
                      {nullptr, 1, 1, 1, 0}}),
            (std::vector<Rect>{
                {0, 0, 200, 100}, {0, 100, 200, 100}, {0, 300, 200, 100}, {0, 700, 200, 100}}));
}

TEST(PageView, RowsThatDoNotFitAreFatal) {
  EXPECT_DEATH(framesOf({{nullptr, 1, 1, 1, 0}}), "begins row 1");
  EXPECT_DEATH(framesOf({{nullptr, 1, 0, 1, 0}, {nullptr, 1, 1, 1, 1}}), "below section 1");
  EXPECT_DEATH(framesOf({{nullptr, 1, 0, 1, 0}, {nullptr, 1, 1, 1, -1}}), "below section -1");
}

TEST(PageView, OfTwoSectionsWithOneNameTheLaterIsShown) {
  const auto first = named("same"), second = named("same");
  PageView view(std::make_shared<Page>(
                    std::vector<UISection>{{first, 1, 0, 1, 0}, {second, 1, 0, 1, 0}}, "P"),
                nullptr);
  toolkit::View content;
  content.addSubview(view);
  view.setFrame({0, 0, 401, 100});
  view.draw(view.bounds());
  ASSERT_EQ(view.sectionViews().size(), 1u);
  EXPECT_EQ(&view.sectionViews().at("same")->section(), second.get());
  EXPECT_EQ(view.sectionViews().at("same")->frame(), (Rect{201, 0, 200, 100}));
  EXPECT_EQ(view.title(), "P");
}

TEST(PageView, AnEmptyPageDrawsNothing) {
  PageView view(std::make_shared<Page>(std::vector<UISection>{}, ""), nullptr);
  view.setFrame({0, 0, 100, 100});
  view.draw(view.bounds());
}

class SettingsViewControllerTest : public testing::Test {
 protected:
  void load(int pages, platform::Size size = {900, 600}) {
    const auto design = std::make_shared<support::GivenDesign>();
    for (int i = 0; i < pages; ++i)
      design->addPage("Page " + std::to_string(i), {support::section("S", {"k"}, "k")});
    settings.design = design;
    settings.controls = controls;
    settings.view().setFrame({0, 0, size.width, size.height});
    settings.viewDidLayoutSubviews();
  }
  std::shared_ptr<kestroui::ParamKey> add(const std::string& name) {
    const auto key = support::paramKey(name, kestroui::ControlType::knob);
    controls->addKey(key);
    controls->set(key, std::make_shared<kestroui::KnobContainer>());
    return key;
  }
  std::vector<bool> visible() const {
    std::vector<bool> pages;
    for (const auto& page : settings.pageViews()) pages.push_back(page->isVisible());
    return pages;
  }
  Rect frameOf(const std::string& name) { return controls->container(name)->frame(); }

  std::shared_ptr<ControlCollection> controls = std::make_shared<ControlCollection>();
  SettingsViewController settings;
};

TEST_F(SettingsViewControllerTest, ThreePagesWithTabsAndFoot) {
  add("k");
  settings.footHRatio = 0.1;
  load(3);
  EXPECT_EQ(settings.pageNavigation().frame(), (Rect{0, 0, 900, 60}));
  EXPECT_EQ(settings.pageViews()[0]->frame(), (Rect{0, 62, 900, 478}));
  EXPECT_TRUE(settings.pageViews()[1]->frame().isEmpty());
  settings.pageNavigation().draw({});
  const auto& buttons = settings.pageNavigation().pageButtons();
  ASSERT_EQ(buttons.size(), 3u);
  EXPECT_EQ(buttons[1]->frame(), (Rect{300, 0, 300, 60}));
  EXPECT_EQ(buttons[1]->title(), "Page 1");
  EXPECT_TRUE(buttons[0]->isSelected());
  EXPECT_EQ(visible(), (std::vector<bool>{true, false, false}));
}

TEST_F(SettingsViewControllerTest, OnePageHasNoTabsButStartsTwoPointsDown) {
  add("k");
  load(1);
  EXPECT_TRUE(settings.pageNavigation().isHidden());
  EXPECT_EQ(settings.navigationH(), 0);
  EXPECT_EQ(settings.pageViews()[0]->frame(), (Rect{0, 2, 900, 598}));
}

TEST_F(SettingsViewControllerTest, ATabShowsItsPageAndTakesTheControlsAlong) {
  add("k");
  load(2);
  auto& navigation = settings.pageNavigation();
  navigation.onPageButton(*navigation.pageButtons()[1]);
  EXPECT_EQ(settings.currentPage(), 1);
  EXPECT_EQ(visible(), (std::vector<bool>{false, true}));
  EXPECT_TRUE(navigation.pageButtons()[1]->isSelected());
  EXPECT_FALSE(navigation.pageButtons()[0]->isSelected());
  EXPECT_EQ(controls->container("k")->superview(),
            settings.pageViews()[1]->sectionViews().at("S").get());
  // The same tab again lays out again.
  settings.view().setFrame({0, 0, 300, 600});
  navigation.onPageButton(*navigation.pageButtons()[1]);
  EXPECT_EQ(settings.pageViews()[1]->frame().width, 300);
  toolkit::Control stranger;
  navigation.onPageButton(stranger);
  EXPECT_EQ(settings.currentPage(), 1);
  EXPECT_DEATH(settings.setCurrentPage(2), "There is no page 2");
  EXPECT_DEATH(settings.setCurrentPage(-1), "There is no page -1");
}

TEST_F(SettingsViewControllerTest, TheKeyboardGoesInTheDesignsOrderWhicheverPageWasBefore) {
  for (const char* name : {"switch", "a", "c"}) add(name);
  const auto design = std::make_shared<support::GivenDesign>();
  design->addPage("0", {support::section("A", {"a"}, "switch")});
  design->addPage("1", {support::section("B", {"c"}, "switch")});
  settings.design = design;
  settings.controls = controls;
  settings.view().setFrame({0, 0, 900, 600});
  settings.viewDidLayoutSubviews();
  for (const int page : {1, 0, 1}) {
    settings.setCurrentPage(page);
    const auto& [name, section] =
        *settings.pageViews()[static_cast<std::size_t>(page)]->sectionViews().begin();
    section->draw(section->bounds());
    const std::vector<toolkit::View*> order(section->subviews().end() - 2,
                                            section->subviews().end());
    EXPECT_EQ(order, (std::vector<toolkit::View*>{controls->container("switch").get(),
                                                  controls->container(page ? "c" : "a").get()}))
        << page;
  }
}

TEST_F(SettingsViewControllerTest, AFootControlExtendsOverTheEmptyEntriesAfterIt) {
  add("k");
  settings.foot_stack = {add("first"), add("A"), nullptr, add("B")};
  settings.footHRatio = 0.1;
  load(1, {400, 600});
  EXPECT_EQ(frameOf("first"), (Rect{0, 541, 100, 59}));
  EXPECT_EQ(frameOf("A"), (Rect{100, 541, 200, 59}));
  EXPECT_EQ(frameOf("B"), (Rect{300, 541, 100, 59}));
  EXPECT_EQ(controls->container("A")->superview(), &settings.view());
  EXPECT_TRUE(controls->container("A")->isVisible());
  settings.foot_stack = {add("A"), support::paramKey("unknown", kestroui::ControlType::knob)};
  settings.layoutFoot();
  EXPECT_EQ(frameOf("A").width, 200);
  settings.foot_stack->clear();
  settings.layoutFoot();
}

TEST_F(SettingsViewControllerTest, WhileResizingThePlatformsLayoutDoesNothing) {
  add("k");
  load(1);
  settings.resizing = true;
  settings.view().setFrame({0, 0, 100, 100});
  settings.viewDidLayoutSubviews();
  EXPECT_EQ(settings.pageViews()[0]->frame().width, 900);
}

TEST_F(SettingsViewControllerTest, RemovingAPageKeepsTheOneThatIsShown) {
  struct Case {
    int shown, removed, current;
  };
  add("k");
  load(5);
  support::EditorWindow window({900, 600});
  window.host.addChild(settings);
  window.host.view().addSubview(settings.view());
  for (const Case& c : {Case{1, 1, 1}, {1, 0, 0}, {2, 0, 1}, {1, 1, 0}}) {
    settings.setCurrentPage(c.shown);
    window.window.prepareFrame();
    settings.removePage(c.removed);
    window.window.prepareFrame();
    EXPECT_EQ(settings.currentPage(), c.current);
    const auto& tabs = settings.pageNavigation().pageButtons();
    EXPECT_NEAR(tabs.back()->frame().maxX(), tabs.size() > 1 ? 900 : 450, 0.01)
        << "the tabs that are left share the width";
    EXPECT_EQ(settings.pageNavigation().pages().size(), settings.pageViews().size());
    const auto current = static_cast<std::size_t>(c.current);
    EXPECT_TRUE(settings.pageViews()[current]->isVisible());
    EXPECT_TRUE(settings.pageNavigation().pageButtons()[current]->isSelected());
  }
  EXPECT_EQ(settings.pageNavigation().pages(), std::vector<std::string>{"Page 3"});
  EXPECT_TRUE(settings.pageNavigation().isHidden());
  settings.removePage(0);
  EXPECT_EQ(settings.pageViews().size(), 1u);
  EXPECT_DEATH(settings.removePage(1), "There is no page 1");
  settings.updateSectionStates("k");
}

}  // namespace
}  // namespace orvane
