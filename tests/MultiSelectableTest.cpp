#include "Orvane/MultiSelectable.h"

#include <gtest/gtest.h>

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
