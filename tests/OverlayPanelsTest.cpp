// The panels that ask, and the small inputs of the preset browser.

#include <gtest/gtest.h>

#include <optional>

#include "Orvane/AlertPanel.h"
#include "Orvane/ConfirmOverlay.h"
#include "Orvane/EnterValueOverlay.h"
#include "Orvane/FiltersTableViewController.h"
#include "Orvane/ParagraphLabel.h"
#include "Orvane/PresetViewOverlay.h"
#include "Orvane/SearchBar.h"
#include "tests/support/ManualDriver.h"
#include "tests/support/WindowBench.h"

namespace orvane {
namespace {

using platform::Key;

/// Writes down what panels tell it.
struct Owner : EnterValueOverlayDelegate,
               ConfirmOverlayDelegate,
               SearchBarDelegate,
               FiltersTableViewControllerDelegate,
               platform::WeakTarget {
  void textFieldOverlayDidConfirm(TextFieldOverlay&,
                                  const std::optional<std::string>& text) override {
    journal += "[" + text.value_or("none") + "]";
  }
  void enterValueOverlayDidReset() override { journal += "reset"; }
  void enterValueOverlayDidChoose(std::size_t index) override {
    journal += "#" + std::to_string(index);
  }
  void confirmOverlayDidAnswer(ConfirmOverlay&, bool yes) override { journal += yes ? "Y" : "N"; }
  void searchTextChanged(const std::string& text) override { journal += "/" + text; }
  void filterSelected(const std::optional<std::string>& filter) override {
    journal += "," + filter.value_or("none");
  }
  std::string journal;
};

class OverlayPanelsTest : public testing::Test {
 protected:
  template <class Panel>
  void show(Panel& panel) {
    panel.setFrame({0, 0, 400, 300});
    bench.root().addSubview(panel);
    panel.setHidden(true);
    bench.frame();
    panel.setHidden(false);
    bench.frame();
  }
  void type(const std::string& text) {
    for (char c : text) bench.key(Key::character, platform::Modifiers::none, std::string(1, c));
  }
  void tap(toolkit::View& view) { bench.tap(view.convertToRoot(view.bounds().centre())); }

  support::ManualLoop loop;
  support::WindowBench bench;
  Owner owner;
};

TEST_F(OverlayPanelsTest, aTextPanelStartsEmptyEachTimeAndConfirmsOnlyWithOk) {
  TextFieldOverlay panel;
  panel.delegate = &owner;
  show(panel);
  EXPECT_EQ(panel.titleLabel().text(), "Please enter a preset name : ");
  type("Foam");
  bench.key(Key::returnKey);
  EXPECT_TRUE(panel.okButton().isFirstResponder()) << "a second Return presses it";
  EXPECT_EQ(owner.journal, "");
  tap(panel.okButton());
  EXPECT_EQ(owner.journal, "[Foam]");
  EXPECT_FALSE(panel.isHidden()) << "its owner hides it";
  panel.setHidden(true);
  panel.setHidden(false);
  tap(panel.okButton());
  EXPECT_EQ(owner.journal, "[Foam][]");
  panel.delegate = nullptr;
  tap(panel.okButton());
}

TEST_F(OverlayPanelsTest, theValuePanelIsWhereItShouldBeAndClosesBesideItself) {
  EnterValueOverlay panel;
  panel.delegate = &owner;
  show(panel);
  EXPECT_EQ(panel.titleLabel().text(), "Please enter a value : ");
  EXPECT_EQ(panel.textField().frame(), (platform::Rect{100, 135, 108, 30}));
  EXPECT_EQ(panel.okButton().frame(), (platform::Rect{211, 135, 40, 30}));
  EXPECT_EQ(panel.outside().frame(), panel.bounds());
  tap(panel.resetButton());
  EXPECT_EQ(owner.journal, "reset");
  bench.tap({200, 200});
  EXPECT_FALSE(panel.isHidden()) << "a finger that misses the buttons";
  bench.tap({5, 5});
  EXPECT_TRUE(panel.isHidden());
  EXPECT_EQ(owner.journal, "reset");
}

TEST_F(OverlayPanelsTest, theValuePanelSaysWhichValueItAsksForAndOffersThoseBesideIt) {
  EnterValueOverlay panel;
  panel.delegate = &owner;
  panel.setEntries({{"Cutoff", "1200 Hz"}}, 0);
  show(panel);
  EXPECT_EQ(panel.nameLabel().text(), "Cutoff");
  EXPECT_FALSE(panel.nameLabel().isHidden());
  EXPECT_TRUE(panel.nameButtons().isHidden());
  EXPECT_EQ(panel.textField().placeholder(), "1200 Hz");
  EXPECT_EQ(panel.textField().accessibility().name, "Cutoff, now 1200 Hz");
  EXPECT_FALSE(bench.key(Key::down)) << "nothing else to choose";

  panel.setEntries({{"Cutoff", "1200 Hz"}, {"Resonance", "3 dB"}}, 1);
  bench.frame();
  EXPECT_TRUE(panel.nameLabel().isHidden());
  EXPECT_EQ(panel.nameButtons().titles(), (std::vector<std::string>{"Cutoff", "Resonance"}));
  EXPECT_EQ(panel.textField().placeholder(), "3 dB");
  type("44");
  bench.key(Key::up);
  EXPECT_EQ(panel.textField().placeholder(), "1200 Hz");
  EXPECT_EQ(panel.textField().text(), "") << "it was meant for the other";
  const platform::Rect names = panel.nameButtons().frame();
  bench.tap({names.maxX() - 20, names.midY()});
  EXPECT_EQ(panel.textField().accessibility().name, "Resonance, now 3 dB");
  EXPECT_TRUE(panel.textField().isFirstResponder()) << "ready to type";
  EXPECT_EQ(owner.journal, "#0#1");
  EXPECT_GE(names.y, 0.225 * 300);
  EXPECT_LE(names.maxY(), panel.titleLabel().frame().y);
  EXPECT_GE(names.height, 40) << "enough for a finger";
}

TEST_F(OverlayPanelsTest, aQuestionIsAnsweredByAButtonAndNoIsTheSafeAnswer) {
  ConfirmOverlay panel;
  panel.delegate = &owner;
  show(panel);
  EXPECT_EQ(panel.text(), "Are you sure you want to delete this preset?");
  tap(panel.okButton());
  tap(panel.cancelButton());
  panel.setHidden(true);
  panel.setHidden(false);
  bench.key(Key::returnKey);
  bench.key(Key::escape);
  EXPECT_EQ(owner.journal, "YNNN");
}

TEST_F(OverlayPanelsTest, aPanelGivesTheKeyboardBackToWhoHadIt) {
  toolkit::TextField before;
  before.setFrame({0, 0, 100, 20});
  bench.root().addSubview(before);
  ConfirmOverlay question;
  TextFieldOverlay entry;
  for (toolkit::View* panel : std::initializer_list<toolkit::View*>{&question, &entry}) {
    panel->setFrame({0, 0, 400, 300});
    bench.root().addSubview(*panel);
    panel->setHidden(true);
    bench.frame();
    before.becomeFirstResponder();
    panel->setHidden(false);
    EXPECT_FALSE(before.isFirstResponder());
    panel->setHidden(true);
    EXPECT_TRUE(before.isFirstResponder());
  }
}

TEST_F(OverlayPanelsTest, anAlertIsSaidOnceAndKeepsAllKeysButTheHostsShortcuts) {
  toolkit::TextField before;
  before.setFrame({0, 0, 80, 20});
  bench.root().addSubview(before);
  before.becomeFirstResponder();
  AlertPanel alert(bench.root());
  std::vector<std::size_t> answers;
  const auto ask = [&](const std::string& title) {
    alert.show({title, "text", {"Keep", "Delete"}, [&](std::size_t i) { answers.push_back(i); }});
    bench.frame();
  };
  ask("First");
  ask("First");
  ask("Second");
  EXPECT_TRUE(alert.button(0).isFirstResponder()) << "the safe one";
  EXPECT_TRUE(bench.key(Key::character, platform::Modifiers::none, "x"));
  EXPECT_FALSE(bench.key(Key::character, platform::Modifiers::control, "s"));
  bench.key(Key::right);
  bench.key(Key::returnKey);
  ASSERT_NE(alert.message(), nullptr);
  EXPECT_EQ(alert.message()->title, "Second");
  bench.key(Key::escape);
  EXPECT_EQ(alert.message(), nullptr);
  EXPECT_EQ(answers, (std::vector<std::size_t>{1, 0}));
  EXPECT_EQ(alert.superview(), nullptr);
  EXPECT_TRUE(before.isFirstResponder());
  alert.show({"Third", "text", {"OK"}, {}});
  bench.frame();
  EXPECT_FALSE(alert.button(0).isHidden());
  EXPECT_TRUE(alert.button(1).isHidden()) << "one answer, one button";
}

TEST_F(OverlayPanelsTest, textsAreBrokenBetweenWordsAndTheLastLineHasTheRest) {
  const auto wrapped = [](const std::string& text, std::size_t lines = std::string::npos) {
    std::string result;
    for (const std::string& line : wrappedLines(
             text, 8, [](std::string_view t) { return static_cast<double>(t.size()); }, lines))
      result += line + '|';
    return result;
  };
  EXPECT_EQ(wrapped(""), "");
  EXPECT_EQ(wrapped("  one two three\nfour  "), "one two|three|four|");
  EXPECT_EQ(wrapped("immeasurable one"), "immeasurable|one|");
  EXPECT_EQ(wrapped("one two three four", 2), "one two|three four|");
}

TEST_F(OverlayPanelsTest, theSearchBarTellsEveryChangeAndReturnLeavesIt) {
  SearchBar bar;
  bar.delegate = &owner;
  bar.setFrame({0, 0, 400, 30});
  bench.root().addSubview(bar);
  bench.frame();
  EXPECT_EQ(bar.textField().frame(), (platform::Rect{30, 0, 370, 30}));
  bench.tap({100, 15});
  type("Ti");
  bench.frame();
  bench.tap({388, 15});
  EXPECT_EQ(owner.journal, "/T/Ti/") << "cleared by its button";
  EXPECT_TRUE(bench.key(Key::returnKey));
  EXPECT_FALSE(bar.textField().isFirstResponder());
}

TEST_F(OverlayPanelsTest, theBankFiltersTellEachTapAndComeBackAfterARefill) {
  FiltersTableViewController filters;
  filters.delegate = &owner;
  filters.view().setFrame({0, 0, 100, 160});
  bench.root().addSubview(filters.view());
  filters.setFilterList({"ALL", "USER", "FAVOURITES", "COAST"});
  bench.frame();
  bench.tap({50, 86});  // rows of 20, below the height of a header
  bench.tap({50, 86});
  EXPECT_EQ(owner.journal, ",COAST,COAST");
  filters.setFilterList({"ALL", "USER", "FAVOURITES", "HARBOUR", "COAST"});
  filters.reapplySelection();
  EXPECT_EQ(owner.journal, ",COAST,COAST,COAST");
  EXPECT_EQ(filters.tableView().indexPathForSelectedRow(), (toolkit::IndexPath{0, 4}));
  filters.setFilterList({"ALL"});
  filters.reapplySelection();
  EXPECT_EQ(owner.journal, ",COAST,COAST,COAST");
  EXPECT_EQ(filters.tableView().indexPathForSelectedRow(), std::nullopt);
}

TEST_F(OverlayPanelsTest, theCategoriesThatNarrowTheListStayOnWhenTheBrowserIsRefilled) {
  orvane::PresetLibrary library;
  PresetViewOverlay browser(library);
  browser.categories = {"Bass", "Lead"};
  browser.setFactoryPresets(std::nullopt);
  browser.categorySelector().setSelectedValues({"Lead"});
  browser.setFactoryPresets(std::nullopt);
  EXPECT_TRUE(browser.categorySelector().buttons()[1]->isOn());
  EXPECT_EQ(browser.presetListTableViewController().currentCategoriesFilter(),
            std::vector<std::string>{"Lead"});
}

}  // namespace
}  // namespace orvane
