#include "toolkit/TableView.h"

#include <gtest/gtest.h>

#include <set>

#include "tests/support/ManualDriver.h"
#include "tests/support/WindowBench.h"
#include "toolkit/Control.h"

namespace {

using platform::Key;
using toolkit::IndexPath;
using toolkit::TableView;
using ScrollPosition = toolkit::TableView::ScrollPosition;

class StarCell : public toolkit::TableViewCell {
 public:
  StarCell() { addSubview(star); }
  void draw(const platform::Rect& rect) override {
    TableViewCell::draw(rect);
    star.setFrame({bounds().width - 20, 0, 20, bounds().height});
  }
  toolkit::Control star;
};

// Two sections in a table of 200 x 240 points: rows of an eighth of that, headers of 24.
class TableViewTest : public testing::Test,
                      public toolkit::TableViewSource,
                      public platform::WeakTarget {
 protected:
  TableViewTest() {
    table.setFrame({0, 0, 200, 240});
    bench.root().addSubview(table);
    table.setSource(this);
    bench.frame();
  }

  int numberOfSections(TableView&) override { return static_cast<int>(rows.size()); }
  int numberOfRowsInSection(TableView&, int section) override {
    return rows[static_cast<std::size_t>(section)];
  }
  toolkit::TableViewCell& cellForRowAt(TableView& asking, IndexPath row) override {
    auto& cell = asking.dequeueReusableCell<StarCell>();
    cell.textLabel().setText(std::to_string(row.section) + "/" + std::to_string(row.row));
    ++filled;
    return cell;
  }
  std::string titleForHeaderInSection(TableView&, int section) override {
    return section == 0 ? "USER" : "FACTORY";
  }
  double heightForHeaderInSection(TableView&, int) override { return 24; }
  double heightForRowsInSection(TableView& asking, int) override {
    return asking.bounds().height / 8;
  }
  void didSelectRowAt(TableView&, IndexPath row) override {
    journal += "+" + std::to_string(row.section) + "/" + std::to_string(row.row);
    if (onSelect) onSelect();
  }
  bool didMarkRowAt(TableView&, IndexPath row, Mark how) override {
    if (!marksRows) return false;
    static const char* const names[] = {"none", "toggle", "extend", "all"};
    marks += std::string(names[static_cast<int>(how)]) + std::to_string(row.row) + " ";
    return true;
  }
  void didDeselectRowAt(TableView&, IndexPath row) override {
    journal += "-" + std::to_string(row.section) + "/" + std::to_string(row.row);
    if (onDeselect) onDeselect();
  }

  /// The texts of the cells and headers in sight.
  std::set<std::string> texts() {
    std::set<std::string> result;
    bench.frame();
    for (const std::string& line : bench.painted())
      if (line.rfind("text ", 0) == 0) result.insert(line.substr(line.find_first_not_of(' ', 5)));
    return result;
  }

  support::ManualLoop loop;
  support::WindowBench bench;
  std::vector<int> rows{3, 100000};
  TableView table;
  std::string journal, marks;
  bool marksRows = true;
  std::function<void()> onSelect, onDeselect;
  int filled = 0;
};

TEST_F(TableViewTest, buildsNoMoreCellsThanFitHoweverFarItScrolls) {
  EXPECT_EQ(table.contentHeight(), 24 + 3 * 30 + 24 + 100000 * 30.0);
  for (int i = 0; i < 500; ++i) {
    table.setContentOffset(i * 5999.0);
    bench.frame();
  }
  EXPECT_LE(table.cellCount(), 10u);
  table.scrollToRow({1, 50000}, ScrollPosition::middle);
  EXPECT_TRUE(texts().contains("1/50000"));
  EXPECT_NEAR(table.cellForRow({1, 50000})->frame().y, (240 - 30) / 2, 1e-6);
  table.scrollToRow({1, 50000}, ScrollPosition::middle);
  table.setFrame({0, 0, 200, 120});
  bench.frame();
  EXPECT_NEAR(table.cellForRow({1, 50000})->frame().y, (120 - 15) / 2.0, 1e-6) << "at its new size";
  table.setContentOffset(1e9);
  table.setFrame({0, 0, 200, 240});
  bench.frame();
  EXPECT_LE(table.contentOffset(), table.contentHeight() - 240);
  filled = 0;
  table.setContentOffset(table.contentOffset() - 30);
  bench.frame();
  EXPECT_EQ(filled, 1) << "one row came into sight";
  for (const double step : {31.0, -31.0}) {
    for (int i = 0; i < 100; ++i) {
      table.setContentOffset(table.contentOffset() + step);
      bench.frame();
    }
    EXPECT_LE(table.cellCount(), 10u) << "what goes out of sight is used again, on either side";
  }
  const int first = table.rowAt(table.contentOffset())->row;
  EXPECT_EQ(table.cellForRow({1, first - 1}), nullptr);
  EXPECT_NE(table.cellForRow({1, first}), nullptr);
  EXPECT_EQ(table.cellForRow({1, first + 9}), nullptr);
}

TEST_F(TableViewTest, placesAndRowsAnswerEachOther) {
  const std::pair<double, std::optional<IndexPath>> cases[] = {
      {-1, std::nullopt},      {23, std::nullopt},     {24, IndexPath{0, 0}},
      {53.5, IndexPath{0, 0}}, {54, IndexPath{0, 1}},  {113, IndexPath{0, 2}},
      {114, std::nullopt},     {138, IndexPath{1, 0}}, {138 + 30 * 100000.0, std::nullopt}};
  for (const auto& [y, row] : cases) {
    EXPECT_EQ(table.rowAt(y), row) << y;
    if (row) {
      EXPECT_TRUE(table.rectForRow(*row).contains(platform::Point{1, y})) << y;
    }
  }
  EXPECT_TRUE(table.rectForRow({0, 3}).isEmpty());
  EXPECT_TRUE(table.rectForRow({2, 0}).isEmpty());
}

TEST_F(TableViewTest, aHeaderFloatsUntilItsSectionHasGoneBy) {
  EXPECT_TRUE(texts().contains("USER"));
  table.setContentOffset(60);
  EXPECT_TRUE(texts().contains("USER")) << "its rows are still there";
  table.setContentOffset(24 + 90 + 24 + 3000);
  EXPECT_EQ(texts().count("USER"), 0u);
  EXPECT_TRUE(texts().contains("FACTORY"));
  bench.press({50, 10});
  EXPECT_FALSE(table.cellForRow(*table.rowAt(table.contentOffset() + 10))->isHighlighted());
  bench.lift({50, 10});
  EXPECT_EQ(journal, "") << "a tap on it is none on the row below it";
}

TEST_F(TableViewTest, cellsShowWhatIsPressedChosenAndReachedByKeys) {
  const auto cell = [&](int row) { return table.cellForRow({0, row}); };
  bench.press({50, 24 + 45});
  EXPECT_TRUE(cell(1)->isHighlighted());
  bench.drag({50, 24 + 47});
  EXPECT_TRUE(cell(1)->isHighlighted()) << "a finger is never quite still";
  bench.drag({50, 24 + 60});
  EXPECT_FALSE(cell(1)->isHighlighted());
  bench.lift({50, 24 + 60});
  bench.press({50, 24 + 45});
  bench.window.cancelTouches();
  EXPECT_FALSE(cell(1)->isHighlighted());
  EXPECT_EQ(journal, "");
  table.setContentOffset(0);
  bench.frame();

  bench.tap({50, 24 + 45});
  bench.tap({50, 24 + 45});
  EXPECT_EQ(journal, "+0/1+0/1") << "chosen again, and never given up";
  EXPECT_TRUE(cell(1)->isSelected());
  bench.key(Key::down);
  EXPECT_TRUE(cell(2)->isFocused()) << "from the chosen row on";
  EXPECT_FALSE(bench.key(Key::up, platform::Modifiers::command));
  table.refillCells();
  bench.frame();
  EXPECT_TRUE(cell(1)->isSelected() && cell(2)->isFocused());
  table.resignFirstResponder();
  EXPECT_FALSE(cell(2)->isFocused());
  table.deselectRow({0, 0});
  EXPECT_TRUE(cell(1)->isSelected());
  table.deselectRow({0, 1});
  EXPECT_FALSE(cell(1)->isSelected());
  EXPECT_EQ(journal, "+0/1+0/1") << "only what the user does is told";
}

TEST_F(TableViewTest, aTapMeansOneRowAndKeysMouseAndARestingFingerMarkSeveral) {
  using Kind = toolkit::Touch::Kind;
  using platform::Modifiers;
  struct Case {
    Kind kind;
    Modifiers modifiers;
    double rest, moves;
    const char* marks;
    const char* chosen;
    bool marksRows = true;
  };
  for (const Case& c : {Case{Kind::mouse, Modifiers::none, 1, 0, "none1 ", "+0/1"},
                        {Kind::mouse, Modifiers::control, 0, 0, "toggle1 ", ""},
                        {Kind::mouse, Modifiers::command, 0, 0, "toggle1 ", ""},
                        {Kind::mouse, Modifiers::shift, 0, 0, "extend1 ", ""},
                        {Kind::finger, Modifiers::none, 0.1, 0, "none1 ", "+0/1"},
                        {Kind::finger, Modifiers::none, 0.6, 0, "toggle1 ", ""},
                        {Kind::finger, Modifiers::none, 0.6, 30, "", ""},
                        {Kind::mouse, Modifiers::shift, 0, 0, "", "+0/1", false},
                        {Kind::mouse, Modifiers::control, 0, 0, "", "+0/1", false},
                        {Kind::finger, Modifiers::none, 0.6, 0, "", "+0/1", false}}) {
    marks = journal = "";
    marksRows = c.marksRows;
    table.reloadData();
    table.setContentOffset(0);
    bench.frame();
    bench.window.touchBegan(1, c.kind, {50, 69}, 1, c.modifiers);
    if (c.moves > 0) bench.window.touchMoved(1, {50, 69 + c.moves});
    loop.advance(c.rest);
    bench.seconds += 1;
    bench.window.touchEnded(1, {50, 69 + c.moves}, c.modifiers);
    loop.advance(1);
    EXPECT_EQ(marks, c.marks);
    EXPECT_EQ(journal, c.chosen);
  }
  EXPECT_FALSE(bench.key(Key::character, Modifiers::control, "a")) << "perhaps it is the host's";
  marks = "";
  marksRows = true;
  table.reloadData();
  bench.frame();
  bench.key(Key::down);
  bench.key(Key::down, Modifiers::shift);
  bench.key(Key::character, Modifiers::control, "a");
  EXPECT_EQ(marks, "extend1 all0 ");
}

TEST_F(TableViewTest, theReachedRowIsNeverUnderAHeaderNorOutOfSight) {
  table.becomeFirstResponder();
  bench.key(Key::up);
  EXPECT_EQ(table.focusedRow(), (IndexPath{1, 99999})) << "from below";
  bench.tap({50, 200});
  EXPECT_EQ(table.focusedRow(), std::nullopt) << "a tap takes the mark of the keys away";
  table.reloadData();
  table.setContentOffset(0);
  bench.frame();
  bench.key(Key::down);
  EXPECT_EQ(table.focusedRow(), (IndexPath{0, 0}));
  bench.key(Key::up);
  EXPECT_EQ(table.focusedRow(), (IndexPath{0, 0}));
  for (const Key key : {Key::down, Key::up})
    for (int i = 0; i < 40; ++i) {
      bench.key(key);
      bench.frame();
      const double y = table.rectForRow(*table.focusedRow()).y - table.contentOffset();
      ASSERT_GE(y, 24) << i;
      ASSERT_LE(y, 240 - 30) << i;
    }
  bench.key(Key::end);
  EXPECT_EQ(table.focusedRow(), (IndexPath{1, 99999}));
  bench.key(Key::down);
  EXPECT_EQ(table.focusedRow(), (IndexPath{1, 99999}));
}

TEST_F(TableViewTest, aTouchThatStopsAGlideChoosesNothingAndOneThatRestedThrowsNothing) {
  const auto pull = [&] {
    bench.press({50, 200});
    for (int i = 1; i <= 10; ++i) {
      bench.seconds += 0.01;
      bench.drag({50, 200 - 10.0 * i});
    }
  };
  pull();
  bench.lift({50, 100});
  loop.advance(0.1);
  const double offset = table.contentOffset();
  bench.tap({50, 100});
  loop.advance(1);
  EXPECT_EQ(table.contentOffset(), offset);
  EXPECT_EQ(journal, "");
  pull();
  bench.seconds += 0.2;
  bench.lift({50, 100});
  EXPECT_FALSE(loop.loop.wantsDisplayFrames());
  pull();
  bench.lift({50, 100});
  table.removeFromSuperview();
  loop.advance(0.1);
  EXPECT_FALSE(loop.loop.wantsDisplayFrames()) << "nobody sees it glide";
}

TEST_F(TableViewTest, whatItCannotUseGoesToItsSurroundings) {
  const platform::WheelEvent sideways{{50, 50}, 1, 0, platform::Modifiers::none};
  const platform::WheelEvent down{{50, 50}, 0, -1, platform::Modifiers::none};
  EXPECT_FALSE(bench.window.wheelTurned(sideways));
  rows = {2};
  table.reloadData();
  bench.frame();
  EXPECT_FALSE(bench.window.wheelTurned(down));
  bench.tap({195, 200});
  EXPECT_EQ(table.contentOffset(), 0);
  EXPECT_EQ(journal, "");
}

TEST_F(TableViewTest, aViewThatGrowsShowsNothingBeyondTheEndOfItsContent) {
  toolkit::ScrollView view;
  bench.root().addSubview(view);
  view.setContentHeight(1000);
  for (const auto& [height, asked, offset] :
       {std::tuple{100.0, 1e9, 900.0}, {500.0, 900.0, 500.0}}) {
    view.setFrame({200, 0, 100, height});
    view.setContentOffset(asked);
    bench.frame();
    EXPECT_EQ(view.contentOffset(), offset);
  }
  view.setFrame({200, 0, 100, 800});
  bench.frame();
  EXPECT_EQ(view.contentOffset(), 200);
}

TEST_F(TableViewTest, whoeverIsToldOfADeselectionMayTakeTheTableAway) {
  table.chooseRow({0, 0});
  onDeselect = [&] { table.setSource(nullptr); };
  table.chooseRow({0, 1});
  EXPECT_EQ(journal, "+0/0-0/0");
  EXPECT_EQ(texts(), std::set<std::string>{});
}

TEST_F(TableViewTest, aTapChoosesAndADragScrollsAndGlidesToRest) {
  bench.tap({50, 24 + 45});
  bench.tap({50, 24 + 15});
  EXPECT_EQ(journal, "+0/1-0/1+0/0");
  EXPECT_EQ(table.indexPathForSelectedRow(), (IndexPath{0, 0}));

  bench.press({50, 200});
  for (int i = 1; i <= 10; ++i) {
    bench.seconds += 0.01;
    bench.drag({50, 200 - 10.0 * i});
  }
  const double dragged = table.contentOffset();
  EXPECT_GT(dragged, 80);
  bench.lift({50, 100});
  EXPECT_TRUE(loop.loop.wantsDisplayFrames());
  loop.advance(8);
  EXPECT_GT(table.contentOffset(), dragged + 200);
  EXPECT_FALSE(loop.loop.wantsDisplayFrames()) << "it runs only while it glides";
  EXPECT_EQ(journal, "+0/1-0/1+0/0");
}

TEST_F(TableViewTest, wheelBarAndKeysReachEveryRow) {
  bench.window.wheelTurned({{50, 50}, 0, -1, platform::Modifiers::none});
  EXPECT_EQ(table.contentOffset(), 90);
  bench.press({195, 120});
  EXPECT_NEAR(table.contentOffset(), (table.contentHeight() - 240) / 2, 1e-6)
      << "beside the thumb, the thumb comes to the finger";
  bench.drag({195, 239});
  bench.lift({195, 239});
  EXPECT_TRUE(texts().contains("1/99999"));

  table.becomeFirstResponder();
  bench.key(Key::home);
  bench.key(Key::down);
  bench.key(Key::down);
  bench.key(Key::down);
  EXPECT_EQ(table.focusedRow(), (IndexPath{1, 0})) << "from one section into the next";
  EXPECT_EQ(journal, "") << "the arrows choose nothing yet";
  bench.key(Key::returnKey);
  EXPECT_EQ(journal, "+1/0");
  bench.key(Key::end);
  bench.key(Key::pageUp);
  EXPECT_TRUE(texts().contains("1/99993"));
}

TEST_F(TableViewTest, controlsInACellGetTheirOwnTouches) {
  struct Counter : platform::WeakTarget {
    void count() { ++taps; }
    int taps = 0;
  } counter;
  auto* cell = static_cast<StarCell*>(table.cellForRow({0, 1}));
  cell->star.addTarget<&Counter::count>(counter, toolkit::ControlEvent::touchDown);
  const platform::Rect star = cell->star.frameInRoot();
  for (const double x : {star.x + 1, star.maxX() - 1}) bench.tap({x, star.midY()});
  EXPECT_EQ(counter.taps, 2) << "at its very end too, beside the bar";
  EXPECT_EQ(journal, "");
}

TEST_F(TableViewTest, aReloadFromWithinASelectionAndFewerRowsAreHarmless) {
  table.scrollToRow({1, 70000}, ScrollPosition::middle);
  bench.frame();
  onSelect = [&] {
    rows = {0, 2};
    table.reloadData();
  };
  bench.tap({50, 120});
  EXPECT_EQ(table.indexPathForSelectedRow(), std::nullopt);
  EXPECT_EQ(texts(), (std::set<std::string>{"USER", "FACTORY", "1/0", "1/1"}));
  EXPECT_EQ(table.contentOffset(), 0);
  table.selectRow(IndexPath{0, 0});
  EXPECT_EQ(table.indexPathForSelectedRow(), std::nullopt);
  table.selectRow(IndexPath{1, 1}, ScrollPosition::middle);
  EXPECT_TRUE(table.cellForRow({1, 1})->isSelected());
  rows.clear();
  table.reloadData();
  EXPECT_EQ(texts(), std::set<std::string>{});
  EXPECT_FALSE(bench.key(Key::down));
}

}  // namespace
