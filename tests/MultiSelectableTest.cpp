#include "Orvane/MultiSelectable.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "tests/support/WindowBench.h"

namespace orvane {
namespace {

using Texts = std::vector<std::string>;

struct Owner : MultiSelectableDelegate, platform::WeakTarget {
  void selectedValuesChanged() override {
    ++changes;
    if (then) then();
  }
  int changes = 0;
  std::function<void()> then;
};

class MultiSelectableTest : public testing::Test {
 protected:
  void show(Texts values, double width = 310) {
    bench.root().addSubview(row);
    row.setValues(std::move(values));
    row.setFrame({0, 0, width, 30});
    row.delegate = &owner;
    bench.frame();
  }
  void tap(std::size_t index) { bench.tap(row.buttons()[index]->frameInRoot().centre()); }

  support::WindowBench bench;
  Owner owner;
  MultiSelectable row;
};

TEST_F(MultiSelectableTest, LongerTextsGetMoreOfTheRow) {
  show({"Bass", "Leads", "Atmosphere"});
  const struct {
    float weight;
    double x, width;
  } expected[] = {{0.7f, 0, 70}, {1.0f, 70, 100}, {1.4f, 170, 140}};
  for (std::size_t i = 0; i < 3; ++i) {
    EXPECT_EQ(row.buttons()[i]->weight, expected[i].weight);
    EXPECT_NEAR(row.buttons()[i]->frame().x, expected[i].x, 1e-4);
    EXPECT_NEAR(row.buttons()[i]->frame().width, expected[i].width, 1e-4);
    EXPECT_EQ(row.buttons()[i]->frame().height, 30);
  }
  show({"Plucks", "Strings"});
  EXPECT_EQ(row.buttons()[0]->weight, 1.0f);
  EXPECT_EQ(row.buttons()[1]->weight, 1.4f);
}

/// Sizes and widths of what is written.
struct TextCanvas : support::LogCanvas {
  void drawText(std::string_view text, const platform::Font& font, const platform::Rect& rect,
                platform::TextAlignment, platform::Color, double minimumScale) override {
    sizes.insert(font.pointSize * std::min(1.0, minimumScale));
    isWhole &= 0.55 * font.pointSize * static_cast<double>(text.size()) <= rect.width;
  }
  std::set<double> sizes;
  bool isWhole = true;
};

TEST_F(MultiSelectableTest, ManyTextsStandInRowsInWhichAllAreReadAndOfOneSize) {
  const Texts many{"Bass",   "Lead",  "Pad",        "Pluck",      "Keys",  "Strings", "Brass",
                   "Voices", "Drone", "Percussion", "Atmosphere", "Noise", "Organ",   "Bells"};
  const struct {
    Texts values;
    platform::Size row;
    double height;
    bool isWhole;
  } cases[] = {{{"Bass", "Leads", "Atmosphere"}, {310, 20}, 20, true},
               {many, {375, 20}, 32, true},
               {many, {390, 66}, 3 * 66 * 0.7, true},
               {Texts(20, "Beyond any measure"), {300, 20}, 64, false},
               {{"Beyond any measure", "Bass"}, {50, 20}, 20, false}};
  for (const auto& c : cases) {
    show(c.values);
    EXPECT_NEAR(row.fitRows(c.row), c.height, 1e-6);
    row.setFrame({0, 0, c.row.width, c.height});
    bench.frame();
    TextCanvas canvas;
    bench.window.composite(canvas, {0, 0, 400, 300});
    EXPECT_EQ(canvas.sizes.size(), 1u);
    EXPECT_GE(*canvas.sizes.begin(), 9);
    EXPECT_EQ(canvas.isWhole, c.isWhole);
    platform::Rect before{0, 0, 0, 0};
    for (const auto& button : row.buttons()) {
      const platform::Rect frame = button->frame();
      if (frame.x == 0 && before.width > 0) {
        EXPECT_NEAR(before.maxX(), c.row.width, 1e-3) << "each row is full";
        EXPECT_NEAR(frame.y, before.maxY(), 1e-6);
      } else {
        EXPECT_NEAR(frame.x, before.maxX(), 1e-6);
        EXPECT_EQ(frame.y, before.y);
      }
      before = frame;
    }
    EXPECT_NEAR(before.maxY(), c.height, 1e-6);
  }
}

TEST_F(MultiSelectableTest, TheSelectionIsInDisplayOrder) {
  show({"Bass", "Leads", "Pads"});
  tap(2);
  tap(0);
  EXPECT_EQ(row.selectedValues(), (Texts{"Bass", "Pads"}));
  tap(0);
  tap(0);
  EXPECT_EQ(row.selectedValues(), (Texts{"Bass", "Pads"}));
  EXPECT_EQ(owner.changes, 4);
}

TEST_F(MultiSelectableTest, ARestoredSelectionSwitchesExactlyItsTextsOn) {
  show({"Bass", "Leads", "Pads"});
  tap(1);
  row.setSelectedValues({"Pads", "Unknown", "Bass"});
  EXPECT_EQ(row.selectedValues(), (Texts{"Bass", "Pads"}));
  EXPECT_FALSE(row.buttons()[1]->isOn());
  EXPECT_EQ(owner.changes, 2);
  row.setValues({"Keys"});
  EXPECT_EQ(row.selectedValues(), (Texts{"Bass", "Pads"})) << "until something changes";
  EXPECT_FALSE(row.buttons()[0]->isOn());
}

TEST_F(MultiSelectableTest, ItWorksWithoutADelegateAndWithoutValues) {
  show({"Bass"});
  row.delegate = nullptr;
  tap(0);
  EXPECT_EQ(row.selectedValues(), Texts{"Bass"});
  show({});
  bench.frame();
  EXPECT_TRUE(row.buttons().empty());
}

TEST_F(MultiSelectableTest, ADelegateMayReplaceTheValuesWhileOneIsTapped) {
  show({"Bass", "Leads"});
  owner.then = [&] { row.setValues({"New"}); };
  tap(1);
  EXPECT_EQ(row.buttons().size(), 1u);
}

TEST_F(MultiSelectableTest, TheKeyboardSwitchesToo) {
  show({"Bass", "Leads"});
  bench.key(platform::Key::tab);
  bench.key(platform::Key::tab);
  bench.key(platform::Key::space);
  EXPECT_EQ(row.selectedValues(), Texts{"Leads"});
}

}  // namespace
}  // namespace orvane
