// The design is plain data: its totals and the order of its initialisers are all that it computes.

#include <gtest/gtest.h>

#include "Orvane/AUDesign.h"
#include "tests/support/TestEditor.h"

namespace orvane {
namespace {

UISection placed(double width, std::int64_t row, double height, std::int64_t offset = 0) {
  return {support::section("s", {}), width, row, height, offset};
}

TEST(DesignModel, TotalsAreTheWidestRowAndTheSumOfTheLeastHighSections) {
  struct Case {
    const char* what;
    std::vector<UISection> sections;
    double width, height;
  };
  const std::vector<Case> cases{
      {"nothing", {}, 0, 0},
      {"two rows", {placed(2, 0, 1), placed(1, 0, 2), placed(1, 1, 1)}, 3, 2},
      {"the smallest weight makes a row's height", {placed(1, 0, 3), placed(1, 0, 1)}, 2, 1},
      {"a gap between row numbers adds nothing", {placed(1, 5, 2), placed(4, 9, 3)}, 4, 5},
      {"sections of a row need not be neighbours",
       {placed(1, 0, 1), placed(1, 1, 1), placed(1, 0, 1)},
       2,
       2},
      {"weights below 0 never win", {placed(-1, 0, 1)}, 0, 1},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    const Page page(c.sections, "P");
    EXPECT_EQ(page.totalWidth, c.width);
    EXPECT_EQ(page.totalHeight, c.height);
  }
}

TEST(DesignModel, TotalsStayWhenSectionsChangeLater) {
  Page page({placed(1, 0, 1)}, "P");
  page.sections.push_back(placed(5, 1, 5));
  EXPECT_EQ(page.totalWidth, 1);
  EXPECT_EQ(page.totalHeight, 1);
}

TEST(DesignModel, ThePlainDesignHasOneEmptyPage) {
  const auto pages = AUDesign().pages();
  ASSERT_EQ(pages.size(), 1u);
  EXPECT_EQ(pages[0]->title(), "");
  EXPECT_TRUE(pages[0]->sections.empty());
  EXPECT_EQ(pages[0]->totalWidth, 0);
  EXPECT_NE(AUDesign().pages()[0], pages[0]);
  EXPECT_TRUE(AUDesign().paramKeys().empty());
}

TEST(DesignModel, InitialisersTakeTheirArgumentsInOrder) {
  const UIParameter slot("cutoff", {"drive", std::nullopt}, 2, 0.5, 0.75);
  EXPECT_EQ(slot.param, "cutoff");
  EXPECT_EQ(slot.siblings.size(), 2u);
  EXPECT_EQ(slot.verticalWeightInColumn, 2);
  EXPECT_EQ(slot.verticalOffsetInColumn, 0.5);
  EXPECT_EQ(slot.widthRatio, 0.75);

  const Section section({{{{"a", {}, 1, 0, 1}, {"b", {}, 1, 0, 1}}, 3}}, "OSC",
                        platform::Color::rgb(0x102030), "on", "level", true, false);
  ASSERT_EQ(section.stack.size(), 1u);
  EXPECT_EQ(section.stack[0].params.size(), 2u);
  EXPECT_EQ(section.stack[0].horizontalWeightInSection, 3);
  EXPECT_EQ(section.stateParameter, "on");
  EXPECT_EQ(section.feedbackParameter, "level");
  EXPECT_TRUE(section.fillNameSpace);
  EXPECT_FALSE(section.displayGradient);

  const UISection placement(nullptr, 2, 3, 4, 5);
  EXPECT_EQ(placement.horizontalWeightInPage, 2);
  EXPECT_EQ(placement.rowIndex, 3);
  EXPECT_EQ(placement.verticalWeightInPage, 4);
  EXPECT_EQ(placement.columnOffset, 5);
}

TEST(DesignModel, AReadyMadeControlHasThePlainSettingsBesides) {
  const ParameterUISettings settings("Scope", std::make_shared<kestroui::Container>());
  EXPECT_EQ(settings.controlType, kestroui::ControlType::knob);
  EXPECT_EQ(static_cast<int>(settings.controlType), 2);
  EXPECT_EQ(settings.links, (std::vector<bool>{false, false}));
  EXPECT_TRUE(settings.attachedParameters.empty());
  EXPECT_FALSE(settings.inverted);
  EXPECT_FALSE(settings.controlColor);
  EXPECT_TRUE(settings.container);
}

}  // namespace
}  // namespace orvane
