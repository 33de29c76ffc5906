#include "KestroUI/DropDownList.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "KestroUI/ChoiceContainers.h"
#include "tests/support/Drawing.h"
#include "tests/support/ManualDriver.h"
#include "tests/support/WindowBench.h"

namespace kestroui {
namespace {

using platform::Key;

class DropDownListTest : public testing::Test {
 protected:
  DropDownListTest() {
    page.setFrame({0, 0, 400, 300});
    bench.root().addSubview(page);
    page.addSubview(*list);
    list->setFrame({20, 20, 120, 24});
    list->setEntries({"Init", "Warm", "Cold", "Bright"});
    list->addTarget<&Counter::onChange>(counter, toolkit::ControlEvent::valueChanged);
    bench.frame();
  }
  void openByTap() {
    bench.tap({30, 30});
    bench.frame();
  }
  /// The place of an entry of the open list, whose rows are as high as the face allows.
  platform::Point row(int index) const { return {40, 50 + 4 + (index + 0.5) * 21.6}; }

  struct Counter : platform::WeakTarget {
    void onChange() { ++changes; }
    int changes = 0;
  };

  support::ManualLoop loop;
  support::WindowBench bench;
  toolkit::View page;
  Counter counter;
  std::unique_ptr<DropDownList> list = std::make_unique<DropDownList>();
};

TEST_F(DropDownListTest, aTapOpensTheListAboveEverythingAndAnotherChooses) {
  openByTap();
  ASSERT_TRUE(list->isOpen());
  EXPECT_EQ(bench.root().subviews().size(), 2u);
  EXPECT_THAT(bench.painted(), testing::IsSupersetOf({"text Init", "text Warm", "text Bright"}));
  bench.tap(row(2));
  EXPECT_FALSE(list->isOpen());
  EXPECT_EQ(list->value(), 2);
  EXPECT_EQ(counter.changes, 1);
  EXPECT_EQ(bench.root().subviews().size(), 1u);
}

TEST_F(DropDownListTest, aPressThatIsDrawnAwayOpensNothing) {
  bench.press({30, 30});
  EXPECT_FALSE(list->isOpen());
  bench.lift({300, 200});
  EXPECT_FALSE(list->isOpen());
}

TEST_F(DropDownListTest, aTapBesideTheListClosesIt) {
  openByTap();
  bench.tap({350, 250});
  EXPECT_FALSE(list->isOpen());
  EXPECT_EQ(counter.changes, 0);
}

TEST_F(DropDownListTest, keysWalkChooseAndLeave) {
  openByTap();
  EXPECT_TRUE(bench.key(Key::down));
  EXPECT_TRUE(bench.key(Key::down));
  EXPECT_TRUE(bench.key(Key::up));
  EXPECT_TRUE(bench.key(Key::returnKey));
  EXPECT_EQ(list->value(), 1);
  EXPECT_TRUE(list->isFirstResponder()) << "the keyboard comes back";
  EXPECT_TRUE(bench.key(Key::returnKey));
  EXPECT_TRUE(list->isOpen());
  EXPECT_TRUE(bench.key(Key::end));
  EXPECT_TRUE(bench.key(Key::escape));
  EXPECT_FALSE(list->isOpen());
  EXPECT_EQ(list->value(), 1);
  EXPECT_TRUE(bench.key(Key::down));
  EXPECT_EQ(list->value(), 2) << "closed, the keys step through the entries";
  EXPECT_FALSE(bench.key(Key::escape));
}

TEST_F(DropDownListTest, theWheelGoesDownTheEntries) {
  bench.window.wheelTurned({{30, 30}, 0, -1, {}});
  EXPECT_EQ(list->value(), 1);
  bench.window.wheelTurned({{30, 30}, 0, 1, {}});
  EXPECT_EQ(list->value(), 0);
}

TEST_F(DropDownListTest, aLongListScrollsByWheelAndFinger) {
  std::vector<std::string> entries;
  for (int i = 0; i < 100; ++i) entries.push_back("Entry " + std::to_string(i));
  list->setEntries(entries);
  openByTap();
  EXPECT_THAT(bench.painted(), testing::Not(testing::Contains("text Entry 40")));
  bench.window.wheelTurned({{40, 100}, 0, -20, {}});
  bench.frame();
  EXPECT_THAT(bench.painted(), testing::Contains("text Entry 40"));
  bench.press({40, 200});
  bench.drag({40, 100});
  bench.lift({40, 100});
  EXPECT_TRUE(list->isOpen()) << "a scroll chooses nothing";
  bench.tap({40, 100});
  EXPECT_GT(list->value(), 40);
}

TEST_F(DropDownListTest, itClosesWhenItsOwnerGoesAway) {
  openByTap();
  list->setHidden(true);
  EXPECT_FALSE(list->isOpen());
  list->setHidden(false);

  list->open();
  page.setHidden(true);
  loop.advance(0.5);
  EXPECT_FALSE(list->isOpen());
  page.setHidden(false);

  list->open();
  ASSERT_TRUE(list->isOpen());
  list->removeFromSuperview();
  EXPECT_FALSE(list->isOpen());
  list->open();
  EXPECT_FALSE(list->isOpen()) << "outside a tree there is no place for it";

  page.addSubview(*list);
  list->open();
  bench.window.setSize({500, 400});
  bench.frame();
  loop.advance(0.5);
  EXPECT_FALSE(list->isOpen());

  list->open();
  list.reset();
  EXPECT_EQ(bench.root().subviews().size(), 1u);
}

TEST_F(DropDownListTest, itsOwnerMayBeDestroyedByTheChoice) {
  struct Owner : platform::WeakTarget {
    void onChange() { list->reset(); }
    std::unique_ptr<DropDownList>* list;
  } owner;
  owner.list = &list;
  list->addTarget<&Owner::onChange>(owner, toolkit::ControlEvent::valueChanged);
  openByTap();
  bench.tap(row(1));
  EXPECT_EQ(list, nullptr);
  bench.frame();
  loop.advance(1);
}

TEST_F(DropDownListTest, aContainerClosesTheListOfAPageThatGoes) {
  DropDownListContainer container;
  container.setStringValues({"a", "b"});
  container.setFrame({0, 100, 100, 60});
  page.addSubview(container);
  bench.frame();
  container.list().open();
  ASSERT_TRUE(container.list().isOpen());
  container.setIsVisible(false);
  EXPECT_FALSE(container.list().isOpen());
}

TEST_F(DropDownListTest, TheListOpensWhereThereIsRoom) {
  const struct {
    platform::Rect owner;
    int entries;
    bool below;
  } cases[] = {
      {{20, 20, 120, 24}, 4, true},    {{20, 150, 120, 24}, 4, true},
      {{20, 250, 120, 24}, 4, false},  {{20, 100, 120, 24}, 60, true},
      {{20, 200, 120, 24}, 60, false}, {{330, 20, 60, 24}, 4, true},
  };
  for (const auto& each : cases) {
    std::vector<std::string> entries(static_cast<std::size_t>(each.entries), "A rather long entry");
    list->setFrame(each.owner);
    list->setEntries(entries);
    bench.frame();
    list->open();
    const support::Drawing open(*bench.root().subviews().back());
    const platform::Rect place = open.all(support::Drawing::Kind::border).front().area;
    EXPECT_EQ(place.y >= each.owner.maxY(), each.below) << each.owner.y;
    EXPECT_TRUE(place.y >= each.owner.maxY() || place.maxY() <= each.owner.y);
    EXPECT_TRUE(bench.root().bounds().contains(place));
    EXPECT_GE(place.width, each.owner.width);
    list->close();
  }
}

TEST_F(DropDownListTest, TheEntryThatCountsIsAlwaysInView) {
  std::vector<std::string> entries;
  for (int i = 0; i < 100; ++i) entries.push_back("Entry " + std::to_string(i));
  list->setEntries(entries);
  list->setValue(60);
  openByTap();
  const auto inView = [&](int index) {
    const support::Drawing open(*bench.root().subviews().back());
    const platform::Rect place = open.all(support::Drawing::Kind::border).front().area;
    for (const auto& text : open.all(support::Drawing::Kind::text))
      if (text.text == "Entry " + std::to_string(index)) return place.contains(text.area);
    return false;
  };
  EXPECT_TRUE(inView(60));
  // The bar beside the entries says where in the list it is.
  const auto barTop = [&] {
    return support::Drawing(*bench.root().subviews().back()).shapes.back().area.y;
  };
  const double middle = barTop();
  const std::pair<Key, int> keys[] = {{Key::end, 99}, {Key::up, 98}, {Key::home, 0}};
  for (const auto& [key, index] : keys) {
    bench.key(key);
    EXPECT_TRUE(inView(index)) << index;
    EXPECT_EQ(barTop() > middle, index > 60);
  }
  for (int i = 1; i < 30; ++i) {
    bench.key(Key::down);
    EXPECT_TRUE(inView(i)) << i;
  }
}

TEST_F(DropDownListTest, aSecondFingerDoesNotChoose) {
  openByTap();
  bench.press(row(0), 1);
  bench.press(row(2), 2);
  bench.lift(row(2), 2);
  EXPECT_TRUE(list->isOpen());
  bench.lift(row(0), 1);
  EXPECT_FALSE(list->isOpen());
  EXPECT_EQ(counter.changes, 0) << "the first finger chose what was chosen";
}

}  // namespace
}  // namespace kestroui
