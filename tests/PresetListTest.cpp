// What the browser's list shows and in which order, and what its rows and its name panel do.

#include <gmock/gmock.h>

#include "Orvane/PresetCell.h"
#include "tests/support/PresetBench.h"
#include "tests/support/TestEditor.h"
#include "tests/support/WindowBench.h"

namespace {

using orvane::FavPresetsStore;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using Names = std::vector<std::string>;

std::vector<platform::KestroAUPreset> factory() {
  std::vector<platform::KestroAUPreset> records;
  for (const auto& preset : std::vector<platform::AUAudioUnitPreset>{
           {.number = 1, .name = "Zed", .bank = "User", .categories = {"lead"}},
           {.number = 2, .name = "aleph", .bank = "Coast", .categories = {"bass"}},
           {.number = 3, .name = "Init"},
           {.number = 4, .name = "default", .bank = "Coast", .categories = {"bass", "pad"}}})
    records.emplace_back(preset);
  return records;
}

class PresetListTest : public support::PresetBench {
 protected:
  PresetListTest() {
    manager->saveNew("zoo", {"LEAD"});
    manager->saveNew("Bright", {"pad"});
    library.setStore(manager.get());
    library.setFactoryPresets(factory());
    list.useHeaders = false;
    list.view().setFrame({0, 0, 300, 400});
    list.reload();
  }
  std::shared_ptr<orvane::Preset> named(const std::string& name) {
    for (const auto& preset : list.presetFileList())
      if (preset->name == name) return preset;
    return nullptr;
  }

  std::unique_ptr<orvane::PresetManager> manager = makeManager();
  orvane::PresetLibrary library;
  orvane::PresetListTableViewController list{library};
};

TEST_F(PresetListTest, BankCategoriesAndSearchNarrowItAndDefaultIsFirst) {
  FavPresetsStore::setFavourite(*named("Init"), true);
  list.reload();
  struct Case {
    const char* bank;
    Names categories;
    const char* search;
    Names shown;
  };
  const Names all{"default", "aleph", "Bright", "Init", "Zed", "zoo"};
  for (const Case& c : {Case{"", {}, "", all},
                        {"ALL", {}, "", all},
                        {"USER", {}, "", {"Bright", "zoo"}},
                        {"FAVOURITES", {}, "", {"Init"}},
                        {"Coast", {}, "", {"default", "aleph"}},
                        {"coast", {}, "", {"default", "aleph"}},
                        {"User", {}, "", {"Zed"}},
                        {"BANK A", {}, "", {"Init"}},
                        {"", {"Bass", "Lead"}, "", {"default", "aleph", "Zed", "zoo"}},
                        {"", {"Pad"}, "", {"default", "Bright"}},
                        {"Coast", {"Lead"}, "", {}},
                        {"", {}, "E", {"default", "aleph", "Zed"}},
                        {"USER", {"Pad"}, "BR", {"Bright"}}}) {
    library.setFilter({c.search, c.bank, c.categories});
    EXPECT_EQ(namesOf(list.presetFileListFiltered()), c.shown) << c.bank << c.search;
    EXPECT_EQ(list.numberOfRowsInSection(list.tableView(), 0), static_cast<int>(c.shown.size()));
  }
  EXPECT_THAT(namesOf(list.presetListForNextAndPrevious()),
              ElementsAre("Bright", "zoo", "aleph", "default", "Init", "Zed"))
      << "the walk is through all of them";
}

TEST_F(PresetListTest, AStarMarksAPresetForGoodAndIsShownByTheNextRowOfIt) {
  orvane::PresetCell cell;
  list.view().addSubview(cell);
  cell.setPreset(named("zoo"));
  EXPECT_FALSE(cell.starButton().isSelected());
  cell.starButton().sendActions(toolkit::ControlEvent::touchDown);
  EXPECT_TRUE(cell.starButton().isSelected());
  FavPresetsStore::load();
  EXPECT_THAT(FavPresetsStore::favouritePresets, Contains(named("zoo")->uniqueName()));
  cell.setPreset(named("Init"));
  EXPECT_FALSE(cell.starButton().isSelected()) << "rows are used again";
  list.reload();
  cell.setPreset(named("zoo"));
  EXPECT_TRUE(cell.starButton().isSelected());
  cell.handleValueChanged();
  FavPresetsStore::load();
  EXPECT_THAT(FavPresetsStore::favouritePresets, IsEmpty());
}

class Editor : public support::TestController {
 public:
  Editor() : TestController(std::make_shared<support::GivenDesign>()) {}
  std::string groupBundleId() override { return group; }
  std::vector<std::string> categories() override { return {"Bass", "Lead"}; }
  std::string group = "group.test";
};

class PresetNamingTest : public support::PresetBench {
 protected:
  PresetNamingTest() {
    editor.setAudioUnit(&unit);
    window.show(editor);
    loop.runDue();
    browser().setHidden(false);
  }
  orvane::PresetViewOverlay& browser() { return editor.overlaysView().presetViewOverlay(); }
  orvane::SaveNewPresetOverlay& panel() { return browser().saveNewPresetOverlay(); }
  void press(toolkit::Control& button) {
    button.sendActions(toolkit::ControlEvent::touchDown);
    window.window.prepareFrame();
  }
  void save(const std::string& name, const Names& chosen = {}) {
    press(browser().saveNewButton());
    panel().textField().setText(name);
    panel().categorySelector().setSelectedValues(chosen);
    press(panel().okButton());
  }
  std::string presets() { return folder / "data/Presets"; }
  /// Of all labels that the browser shows.
  Names texts() {
    Names shown;
    for (toolkit::View* view : browser().subviews())
      if (auto* label = dynamic_cast<toolkit::Label*>(view); label && !label->isHidden())
        shown.push_back(label->text());
    return shown;
  }
  void type(const std::string& text) {
    for (const char c : text)
      window.window.keyPressed(
          {platform::Key::character, platform::Modifiers::none, std::string(1, c)});
  }

  Editor editor;
  support::EditorWindow window{{800, 600}};
};

TEST_F(PresetNamingTest, RenameBeginsWithWhatThePresetHasAndTypingReplacesTheName) {
  save("Foam", {"Lead"});
  panel().categorySelector().setSelectedValues({"Bass"});
  press(browser().editButton());
  EXPECT_EQ(panel().textField().text(), "Foam");
  EXPECT_EQ(panel().categorySelector().selectedValues(), Names{"Lead"});
  type("Spray");
  EXPECT_EQ(panel().textField().text(), "Spray");
  press(panel().okButton());
  EXPECT_EQ(support::namesIn(presets()), std::set<std::string>{"Spray.synth"});
  EXPECT_EQ(editor.currentPresetCatgories(), Names{"lead"});
}

TEST_F(PresetNamingTest, RenamedToItsOwnNameItKeepsItsFileAndAsksNothing) {
  save("Foam");
  press(browser().editButton());
  press(panel().okButton());
  EXPECT_TRUE(browser().replaceOverlay().isHidden());
  EXPECT_TRUE(panel().isHidden());
  EXPECT_EQ(support::namesIn(presets()), std::set<std::string>{"Foam.synth"});
}

TEST_F(PresetNamingTest, AFactoryPresetsNameIsFreeForTheUser) {
  save("Init");
  EXPECT_TRUE(browser().replaceOverlay().isHidden());
  EXPECT_EQ(support::namesIn(presets()), std::set<std::string>{"Init.synth"});
  unit.setParameter("cutoff", 2000);
  for (const auto& preset : editor.overlaysView().presetList().presetFileList())
    if (preset->name == "Init" && !preset->isUserPreset) editor.selectPreset(preset);
  EXPECT_EQ(unit.currentPreset(), 3) << "not the user's";
  loop.advance(0.3);
  EXPECT_FALSE(editor.selectedPreset()->isUserPreset);
  for (const auto& preset : editor.overlaysView().presetList().presetFileList())
    if (preset->name == "Init" && preset->isUserPreset) editor.selectPreset(preset);
  editor.overlaysView().presetList().setSelectedPreset(nullptr);
  editor.rebuildPresetList();
  EXPECT_TRUE(editor.selectedPreset()->isUserPreset) << "not the factory's";
}

TEST_F(PresetNamingTest, ClosingTheBrowserClosesWhatItAsks) {
  save("Foam");
  for (auto* button : {&browser().deleteButton(), &browser().saveNewButton()}) {
    press(*button);
    browser().setHidden(true);
    browser().setHidden(false);
    EXPECT_FALSE(browser().closeDialog()) << "nothing is open";
  }
}

TEST_F(PresetNamingTest, KeysThatADialogHasAreNotTheSearchs) {
  save("Foam");
  press(browser().deleteButton());
  type("x");
  EXPECT_EQ(browser().searchBar().textField().text(), "");
  EXPECT_FALSE(browser().confirmOverlay().isHidden());
  browser().closeDialog();
  type("In");
  EXPECT_EQ(browser().searchBar().textField().text(), "In");
  EXPECT_THAT(texts(), Contains("1 of 2"));
  browser().searchTextChanged("Inox");
  EXPECT_THAT(texts(), Contains("Nothing matches. CLEAR shows all presets."));
}

TEST_F(PresetNamingTest, TheArrowsInTheMenuBarMoveTheMarkInTheOpenList) {
  save("Foam");
  save("Spray");
  browser().setHidden(false);
  orvane::PresetListTableViewController& list = editor.overlaysView().presetList();
  for (int i = 0; i < 3; ++i) {
    editor.menuBar().onPresetArrow(editor.menuBar().arrowRight());
    const auto row = list.tableView().indexPathForSelectedRow();
    ASSERT_TRUE(row.has_value());
    auto* cell = dynamic_cast<orvane::PresetCell*>(&list.cellForRowAt(list.tableView(), *row));
    EXPECT_EQ(cell->textLabel().text(), editor.selectedPreset()->name);
  }
}

TEST_F(PresetNamingTest, KeysAreTheSearchsTheListsOrTheHosts) {
  save("Foam");
  browser().setHidden(false);
  toolkit::View* const keyboard = window.window.firstResponder();
  const auto key = [this](platform::Key pressed, platform::Modifiers modifiers,
                          const char* text = "") {
    return window.window.keyPressed({pressed, modifiers, text});
  };
  using platform::Key;
  using platform::Modifiers;
  for (const Modifiers modifiers : {Modifiers::control, Modifiers::alt})
    EXPECT_FALSE(key(Key::character, modifiers, "s")) << "the host's shortcuts";
  EXPECT_EQ(window.window.firstResponder(), keyboard) << "which the search has not taken";
  type("In");
  EXPECT_EQ(browser().searchBar().textField().text(), "In");
  EXPECT_TRUE(key(Key::pageDown, Modifiers::none)) << "from the search into the list";
  EXPECT_FALSE(browser().searchBar().textField().isFirstResponder());
  type("F");
  EXPECT_EQ(browser().searchBar().textField().text(), "F") << "a new search";
  key(Key::pageDown, Modifiers::none);
  key(Key::backspace, Modifiers::none);
  EXPECT_EQ(browser().searchBar().textField().text(), "") << "or none";
  type("F");
  key(Key::returnKey, Modifiers::none);
  key(Key::returnKey, Modifiers::none);
  EXPECT_EQ(editor.currentPresetName(), "Foam") << "the first that was found";
  EXPECT_FALSE(browser().clearButton().isHidden());
  press(browser().clearButton());
  EXPECT_EQ(browser().searchBar().textField().text(), "");
  EXPECT_THAT(texts(), Contains("2"));
  EXPECT_TRUE(browser().clearButton().isHidden());
}

TEST_F(PresetNamingTest, SeveralRowsAreMarkedStarredAndDeletedTogether) {
  for (const char* name : {"Alpha", "Beta", "Gamma"}) save(name);
  FavPresetsStore::favouritePresets.clear();
  orvane::PresetLibrary& library = editor.presetLibrary();
  library.reload();
  const auto rows = [&](const std::string& wanted) {
    const auto& users = library.walk();
    for (std::size_t i = 0; i < users.size(); ++i)
      if (users[i]->name == wanted) return toolkit::IndexPath{0, static_cast<int>(i)};
    return toolkit::IndexPath{};
  };
  toolkit::TableView& table = editor.overlaysView().presetList().tableView();
  editor.overlaysView().setNeedsDisplay();
  window.window.prepareFrame();
  const auto tap = [&](const std::string& name, platform::Modifiers modifiers, double wait = 0,
                       toolkit::Touch::Kind kind = toolkit::Touch::Kind::mouse) {
    const platform::Rect cell = table.cellForRow(rows(name))->frameInRoot();
    const platform::Point place{cell.x + 40, cell.midY()};
    window.window.touchBegan(1, kind, place, 1, modifiers);
    if (wait > 0) loop.advance(wait);
    window.window.touchEnded(1, place, modifiers);
    loop.runDue();
    window.window.prepareFrame();
  };
  using platform::Modifiers;
  tap("Alpha", Modifiers::none);
  tap("Beta", Modifiers::shift);
  EXPECT_THAT(texts(), Contains("2 marked"));
  EXPECT_EQ(editor.currentPresetName(), "Alpha") << "marking loads nothing";
  EXPECT_FALSE(browser().saveButton().isEnabled());
  EXPECT_TRUE(browser().deleteButton().isEnabled());
  tap("Gamma", Modifiers::control);
  tap("Beta", Modifiers::none, 0.6, toolkit::Touch::Kind::finger);
  EXPECT_EQ(namesOf(library.marked()), (Names{"Alpha", "Gamma"})) << "a finger that stays";
  tap("Alpha", Modifiers::control);
  EXPECT_FALSE(browser().saveButton().isEnabled()) << "Gamma is not what is heard";
  EXPECT_TRUE(browser().editButton().isEnabled());
  tap("Alpha", Modifiers::control);
  for (const bool stars : {true, false}) {
    EXPECT_TRUE(window.window.keyPressed({platform::Key::character, Modifiers::control, "d"}));
    EXPECT_EQ(library.userPresetNamed("Gamma")->isFavourite, stars);
    EXPECT_FALSE(library.userPresetNamed("Beta")->isFavourite);
  }
  press(browser().deleteButton());
  EXPECT_EQ(browser().confirmOverlay().subject(), "Alpha and 1 more");
  press(browser().confirmOverlay().okButton());
  EXPECT_EQ(support::namesIn(presets()), std::set<std::string>{"Beta.synth"});
  EXPECT_EQ(editor.currentPresetName(), "Beta");
  window.window.keyPressed({platform::Key::character, Modifiers::control, "a"});
  EXPECT_EQ(library.markCount(), 2u);
  tap("Beta", Modifiers::none);
  EXPECT_EQ(library.markCount(), 0u) << "a plain tap means one";
}

TEST_F(PresetNamingTest, ArrowKeysLetPresetsBeHeardWhenTheyRestAndEscapeGoesBack) {
  for (const char* name : {"Alpha", "Beta", "Gamma"}) {
    unit.setParameter("cutoff", static_cast<float>(name[0]));
    save(name);
  }
  const auto key = [this](platform::Key pressed) {
    return window.window.keyPressed({pressed, platform::Modifiers::none, ""});
  };
  const auto before = editor.selectedPreset();
  const unsigned generation = unit.presetGeneration();
  key(platform::Key::up);
  key(platform::Key::up);
  EXPECT_EQ(unit.presetGeneration(), generation) << "a key that is held loads nothing";
  loop.advance(0.2);
  EXPECT_EQ(editor.currentPresetName(), "Alpha");
  EXPECT_EQ(unit.parameter("cutoff")->value(), 'A');
  EXPECT_TRUE(key(platform::Key::escape));
  EXPECT_EQ(editor.selectedPreset(), before);
  EXPECT_EQ(unit.parameter("cutoff")->value(), 'G');
  EXPECT_FALSE(browser().isHidden());
  key(platform::Key::up);
  loop.advance(0.2);
  key(platform::Key::returnKey);
  EXPECT_TRUE(key(platform::Key::escape));
  EXPECT_TRUE(browser().isHidden()) << "what was kept stays";
  EXPECT_NE(editor.selectedPreset(), before);
}

TEST_F(PresetNamingTest, TheArrowKeysMeanOneRowAndWithShiftTheRowsBetween) {
  for (const char* name : {"Alpha", "Iota", "Zeta"}) save(name);
  orvane::PresetLibrary& library = editor.presetLibrary();
  using platform::Key;
  const auto key = [this](Key pressed, platform::Modifiers modifiers = platform::Modifiers::none) {
    return window.window.keyPressed({pressed, modifiers, ""});
  };
  EXPECT_TRUE(key(Key::home)) << "from the button that was pressed into the list";
  EXPECT_TRUE(key(Key::down));
  for (int i = 0; i < 2; ++i) EXPECT_TRUE(key(Key::down, platform::Modifiers::shift));
  EXPECT_EQ(namesOf(library.marked()), (Names{"Init", "Iota", "Zeta"}))
      << "the user's and below them the factory's, as the rows stand";
  EXPECT_TRUE(key(Key::escape));
  EXPECT_EQ(library.markCount(), 0u);
  EXPECT_FALSE(browser().isHidden());
  key(Key::up);
  key(Key::down, platform::Modifiers::shift);
  EXPECT_EQ(namesOf(library.marked()), (Names{"Init", "Zeta"}));
  EXPECT_EQ(browser().editButton().title(), "RENAME") << "of the one that is the user's";
  key(Key::up);
  EXPECT_EQ(library.markCount(), 0u) << "as a plain tap";
}

TEST_F(PresetNamingTest, ReturnLeadsToTheFirstHitAndEscapeClearsTheSearchFirst) {
  save("Foam");
  save("Froth");
  toolkit::TableView& table = editor.overlaysView().presetList().tableView();
  const auto key = [this](platform::Key pressed) {
    return window.window.keyPressed({pressed, platform::Modifiers::none, ""});
  };
  table.becomeFirstResponder();
  EXPECT_FALSE(key(platform::Key::returnKey)) << "without a search it means no preset";
  EXPECT_EQ(editor.currentPresetName(), "Froth");
  struct Case {
    const char* search;
    toolkit::IndexPath hit;
    const char* name;
  };
  for (const auto& [search, hit, name] : {Case{"o", {0, 0}, "Foam"}, {"nit", {1, 0}, "Init"}}) {
    type(search);
    key(platform::Key::returnKey);
    EXPECT_EQ(table.focusedRow(), hit) << search;
    loop.advance(0.2);
    EXPECT_EQ(editor.currentPresetName(), name) << "is heard";
    key(platform::Key::returnKey);
  }
  type("zzz");
  EXPECT_TRUE(key(platform::Key::escape));
  EXPECT_EQ(browser().searchBar().textField().text(), "");
  EXPECT_EQ(editor.presetLibrary().shown().size(), 3u);
  EXPECT_FALSE(browser().isHidden());
  EXPECT_TRUE(key(platform::Key::escape));
  EXPECT_TRUE(browser().isHidden());
}

TEST_F(PresetNamingTest, ClearLeavesABrowserWithoutBanksWithoutABank) {
  browser().searchTextChanged("In");
  press(browser().clearButton());
  EXPECT_EQ(editor.presetLibrary().filter().bank, "");
}

TEST_F(PresetNamingTest, ARowTellsWhatItHasRoomForAndAllOfItToThoseWhoListen) {
  orvane::PresetCell cell;
  auto preset = std::make_shared<orvane::Preset>("Foam");
  preset->bankName = "COAST";
  preset->categories = {"pad", "keys"};
  preset->isFavourite = true;
  cell.setPreset(preset);
  cell.setModified(true);
  cell.setMarked(true);
  cell.setSelected(true);
  window.window.rootViewController()->view().addSubview(cell);
  const auto texts = [&](double width) {
    cell.setFrame({0, 0, width, 30});
    window.window.prepareFrame();
    support::LogCanvas canvas;
    window.window.composite(canvas, cell.frameInRoot());
    std::erase_if(canvas.lines, [](const std::string& line) {
      return line != "text Foam" && line != "text COAST" && line != "text pad, keys";
    });
    return canvas.lines;
  };
  EXPECT_THAT(texts(200), ElementsAre("text Foam"));
  EXPECT_THAT(texts(600),
              testing::UnorderedElementsAre("text Foam", "text COAST", "text pad, keys"));
  const platform::Accessibility told = cell.accessibility();
  EXPECT_EQ(told.name, "Foam, COAST, pad, keys");
  EXPECT_EQ(told.value, "Selected, Marked, Changed, Favourite");
}

TEST_F(PresetNamingTest, TheRowOfAChangedPresetSaysSoHoweverItCameIntoSight) {
  save("Foam");
  editor.overlaysView().setNeedsDisplay();
  window.window.prepareFrame();
  toolkit::TableView& table = editor.overlaysView().presetList().tableView();
  const auto isModified = [&](int section) {
    window.window.prepareFrame();
    return dynamic_cast<orvane::PresetCell*>(table.cellForRow({section, 0}))->isModified();
  };
  for (const bool modified : {true, false}) {
    editor.presetLibrary().setModified(modified);
    EXPECT_EQ(isModified(0), modified);
    table.refillCells();
    EXPECT_EQ(isModified(0), modified);
    EXPECT_FALSE(isModified(1));
  }
}

TEST_F(PresetNamingTest, WhatCanBeUndoneLeavesTheButtonsThatDidItInReach) {
  save("Foam");
  press(browser().deleteButton());
  press(browser().confirmOverlay().okButton());
  ASSERT_FALSE(editor.noticeView().isHidden());
  for (const platform::Size& size :
       {platform::Size{480, 320}, {800, 600}, {1024, 768}, {2560, 1600}}) {
    window.resize(size);
    window.window.prepareFrame();
    const platform::Rect notice = editor.noticeView().panelFrame().translated(
        editor.noticeView().frameInRoot().x, editor.noticeView().frameInRoot().y);
    const platform::Rect button = browser().deleteButton().frameInRoot();
    EXPECT_GT(button.y, notice.maxY()) << size.width;
  }
}

TEST(PresetBrowserLayout, BanksStandInTheLinesOfPresets) {
  orvane::PresetLibrary library;
  orvane::PresetViewOverlay browser(library);
  browser.useFilterList = true;
  support::EditorWindow window{{800, 600}};
  window.host.view().addSubview(browser);
  for (const platform::Size& size : {platform::Size{480, 320}, {1600, 1200}}) {
    window.window.setSize(size);
    browser.setFrame({0, 0, size.width, size.height});
    browser.setFactoryPresets(factory());
    library.reload();
    for (int i = 0; i < 2; ++i) window.window.prepareFrame();
    const auto line = [](toolkit::TableView& table) {
      const toolkit::TableViewCell* cell = table.cellForRow({0, 1});
      return cell ? cell->frameInRoot().midY() : -1;
    };
    EXPECT_NEAR(line(browser.filtersTableViewController().tableView()),
                line(browser.presetListTableViewController().tableView()), 0.5);
  }
}

TEST_F(PresetNamingTest, DialogsKeepWhatIsTypedAndTheKeyboardIsNeverNowhere) {
  save("Foam");
  editor.overlaysView().setNeedsDisplay();
  window.window.prepareFrame();
  const auto tap = [this](platform::Point place) {
    window.window.touchBegan(1, toolkit::Touch::Kind::mouse, place, 1);
    window.window.touchEnded(1, place);
    window.window.prepareFrame();
  };
  press(browser().saveNewButton());
  type("Hello");
  for (const platform::Point beside : {platform::Point{10, 400}, {400, 590}, {400, 140}})
    tap(beside);
  EXPECT_FALSE(browser().isHidden());
  EXPECT_FALSE(panel().isHidden());
  EXPECT_EQ(panel().textField().text(), "Hello");
  for (int i = 0; i < 12; ++i) {
    window.window.keyPressed({platform::Key::tab, platform::Modifiers::none, ""});
    EXPECT_TRUE(window.window.firstResponder()->isDescendantOf(panel()));
  }
  browser().closeDialog();
  press(browser().deleteButton());
  press(browser().confirmOverlay().okButton());
  type("In");
  EXPECT_EQ(browser().searchBar().textField().text(), "In") << "after DELETE";
  browser().clearFilters();
  const platform::Rect bar = editor.menuBar().arrowRight().frameInRoot();
  tap({bar.midX(), bar.midY()});
  type("Fo");
  EXPECT_EQ(browser().searchBar().textField().text(), "Fo") << "after an arrow of the menu bar";
  tap({10, 400});
  EXPECT_TRUE(browser().isHidden()) << "a click beside the browser";
}

TEST_F(PresetNamingTest, AStarIsHitAtItsRowsEndAndLeavesTheKeyboardToTheList) {
  orvane::PresetCell cell;
  cell.setPreset(std::make_shared<orvane::Preset>("Foam"));
  window.window.rootViewController()->view().addSubview(cell);
  cell.setFrame({0, 0, 200, 20});
  window.window.prepareFrame();
  for (const double x : {160.0, 180.0, 199.0}) EXPECT_EQ(cell.hitTest({x, 10}), &cell.starButton());
  EXPECT_NE(cell.hitTest({100, 10}), &cell.starButton());
  EXPECT_FALSE(cell.starButton().becomeFirstResponder());
  cell.setShowStarButton(false);
  EXPECT_NE(cell.hitTest({199, 10}), &cell.starButton());
}

TEST_F(PresetNamingTest, BanksAndCategoriesAreThoseOfThePresets) {
  orvane::PresetLibrary library;
  orvane::PresetViewOverlay other(library);
  other.setFactoryPresets(factory());
  EXPECT_THAT(other.categorySelector().values(), ElementsAre("bass", "lead", "pad"));
  EXPECT_THAT(other.filtersTableViewController().filterList(),
              ElementsAre("ALL", "USER", "FAVOURITES", "User", "Coast", "BANK A"));
}

TEST_F(PresetNamingTest, SavingOverAPresetShowsItsNameAndDeletingItChoosesTheNext) {
  save("Foam");
  unit.setParameter("cutoff", 4321);
  editor.setPresetName("edited");
  press(browser().saveButton());
  EXPECT_EQ(editor.menuBar().presetName(), "Foam");
  EXPECT_THAT(support::textOf(presets() + "/Foam.synth"), testing::HasSubstr("4321"));
  EXPECT_TRUE(browser().isHidden());
  browser().setHidden(false);
  press(browser().deleteButton());
  press(browser().confirmOverlay().okButton());
  EXPECT_EQ(editor.currentPresetName(), "Init") << "its neighbour takes its place";
  EXPECT_EQ(unit.currentPresetName(), "Init");
}

TEST_F(PresetNamingTest, AnEditorShowsNoMoreOfPresetsThanItHas) {
  orvane::MenuBar& bar = editor.menuBar();
  EXPECT_TRUE(bar.arrowLeft().isHidden()) << "one preset has no neighbour";
  EXPECT_FALSE(bar.presetNameLabel().isHidden());
  Editor neighbour;
  neighbour.setAudioUnit(&unit);
  neighbour.view();
  save("Foam");
  EXPECT_FALSE(bar.arrowLeft().isHidden());
  neighbour.overlaysView().presetViewOverlay().setHidden(false);
  EXPECT_FALSE(neighbour.menuBar().arrowLeft().isHidden()) << "it has read what another has saved";

  quillon::CommonAudioUnit bare({{.key = "cutoff", .address = 0}});
  Editor plain;
  plain.group = "";
  plain.setAudioUnit(&bare);
  plain.view();
  EXPECT_TRUE(plain.menuBar().presetNameLabel().isHidden());
  EXPECT_TRUE(plain.menuBar().arrowRight().isHidden());
}

}  // namespace
