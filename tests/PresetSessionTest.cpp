// A preset that is heard, changed, saved and deleted, and what of it can be taken back.

#include <gmock/gmock.h>

#include "foundation/DispatchQueue.h"
#include "foundation/PropertyListCoding.h"
#include "tests/support/PresetBench.h"
#include "tests/support/TestEditor.h"

namespace {

using orvane::PresetSession;
using support::namesIn;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using Names = std::set<std::string>;
using Verdict = PresetSession::Verdict;

class Editor : public support::TestController {
 public:
  Editor() : TestController(std::make_shared<support::GivenDesign>()) {}
  std::string groupBundleId() override { return "group.test"; }
  std::vector<std::string> categories() override { return {"Bass", "Lead"}; }
};

class PresetSessionTest : public support::PresetBench {
 protected:
  PresetSessionTest() {
    editor.setAudioUnit(&unit);
    window.show(editor);
    loop.runDue();
    for (const auto& [name, cutoff] : {std::pair{"Alpha", 100}, {"Beta", 200}, {"Gamma", 300}}) {
      set(static_cast<float>(cutoff));
      session.saveNew(name, {"Bass"});
    }
    choose("Alpha");
  }
  void set(float cutoff) {
    unit.setParameter("cutoff", cutoff);
    loop.runDue();
  }
  float cutoff() { return unit.parameter("cutoff")->value(); }
  std::shared_ptr<orvane::UserPreset> named(const std::string& name) {
    return std::dynamic_pointer_cast<orvane::UserPreset>(library.userPresetNamed(name));
  }
  void choose(const std::string& name) {
    editor.selectPreset(named(name));
    loop.runDue();
  }
  std::string selected() { return library.selected() ? library.selected()->name : "none"; }
  std::string presets() { return folder / "data/Presets"; }
  std::string notice() { return editor.noticeView().text(); }
  void pressUndo() {
    editor.noticeView().button().sendActions(toolkit::ControlEvent::touchDown);
    loop.runDue();
  }

  Editor editor;
  support::EditorWindow window{{800, 600}};
  PresetSession& session = editor.presetSession();
  orvane::PresetLibrary& library = editor.presetLibrary();
};

TEST_F(PresetSessionTest, APresetIsMarkedWhileItsSoundIsNotWhatItHasStored) {
  EXPECT_FALSE(editor.menuBar().isPresetModified());
  set(150);
  EXPECT_TRUE(editor.menuBar().isPresetModified());
  set(100);
  EXPECT_FALSE(editor.menuBar().isPresetModified()) << "it is as it was";
  set(150);
  session.revert();
  loop.runDue();
  EXPECT_EQ(cutoff(), 100);
  EXPECT_FALSE(editor.menuBar().isPresetModified());
  set(160);
  session.save(*named("Alpha"), {"bass"});
  EXPECT_FALSE(editor.menuBar().isPresetModified());
  set(170);
  unit.setCurrentPreset(3);
  loop.runDue();
  EXPECT_FALSE(editor.menuBar().isPresetModified()) << "the host has loaded another one";
  EXPECT_EQ(selected(), "Init");
  EXPECT_EQ(editor.menuBar().presetName(), "Init");
}

TEST_F(PresetSessionTest, LeavingAChangedPresetCanBeTakenBack) {
  choose("Beta");
  EXPECT_THAT(notice(), IsEmpty()) << "nothing is lost";
  set(250);
  choose("Gamma");
  EXPECT_THAT(notice(), HasSubstr("\u201cBeta\u201d was changed and not saved."));
  pressUndo();
  EXPECT_EQ(cutoff(), 250);
  EXPECT_EQ(selected(), "Beta");
  EXPECT_TRUE(editor.menuBar().isPresetModified());
  EXPECT_EQ(editor.menuBar().presetName(), "Beta");
  set(200);
  EXPECT_FALSE(editor.menuBar().isPresetModified()) << "as Beta has it stored";
}

TEST_F(PresetSessionTest, WhatIsAuditionedGivesWayOrStays) {
  set(110);
  for (const Verdict verdict : {Verdict::goBack, Verdict::keep}) {
    session.audition(named("Beta"));
    loop.runDue();
    session.audition(named("Gamma"));
    loop.runDue();
    EXPECT_EQ(cutoff(), 300);
    EXPECT_EQ(selected(), "Gamma");
    EXPECT_TRUE(session.isAuditioning());
    session.endAudition(verdict);
    loop.runDue();
    if (verdict == Verdict::keep) break;
    EXPECT_EQ(cutoff(), 110);
    EXPECT_EQ(selected(), "Alpha");
    EXPECT_TRUE(library.isModified());
  }
  EXPECT_EQ(selected(), "Gamma");
  session.undo();
  EXPECT_EQ(cutoff(), 110) << "the changed sound that was left for it";
}

TEST_F(PresetSessionTest, DeletingSelectsTheNeighbourAndCanBeTakenBack) {
  orvane::PresetLibrary::setFavourite(*named("Alpha"), true);
  session.remove({named("Alpha"), named("Beta")});
  EXPECT_EQ(namesIn(presets()), Names{"Gamma.synth"});
  EXPECT_EQ(selected(), "Gamma");
  EXPECT_EQ(cutoff(), 300);
  EXPECT_EQ(notice(), "2 presets were deleted.");
  pressUndo();
  EXPECT_EQ(namesIn(presets()), (Names{"Alpha.synth", "Beta.synth", "Gamma.synth"}));
  EXPECT_TRUE(named("Alpha")->isFavourite);
  session.remove({named("Gamma")});
  EXPECT_EQ(notice(), "\u201cGamma\u201d was deleted.");
}

TEST_F(PresetSessionTest, SavingAndRenamingCanBeTakenBackAndTheSoundStays) {
  set(999);
  session.save(*named("Alpha"), {"bass"});
  EXPECT_EQ(notice(), "\u201cAlpha\u201d was saved over.");
  pressUndo();
  EXPECT_EQ(cutoff(), 999);
  EXPECT_TRUE(library.isModified());
  session.revert();
  EXPECT_EQ(cutoff(), 100);
  session.rename(*named("Alpha"), "Omega", {"Lead"});
  EXPECT_EQ(namesIn(presets()), (Names{"Beta.synth", "Gamma.synth", "Omega.synth"}));
  pressUndo();
  EXPECT_EQ(namesIn(presets()), (Names{"Alpha.synth", "Beta.synth", "Gamma.synth"}));
  EXPECT_THAT(named("Alpha")->categories, ElementsAre("bass"));
}

TEST_F(PresetSessionTest, TheArrowsGoOnPastWhatIsNoPresetAndSayNothingIsLost) {
  folder.write("data/Presets/Beta notes.txt", "to do");
  folder.write("data/Presets/.DS_Store", "x");
  std::filesystem::create_directory(presets() + "/Old sounds");
  library.reload();
  std::vector<std::string> walked;
  for (int i = 0; i < 4; ++i) {
    editor.menuBar().onPresetArrow(editor.menuBar().arrowRight());
    loop.runDue();
    walked.push_back(selected());
  }
  EXPECT_THAT(walked, ElementsAre("Beta", "Gamma", "Init", "Alpha"));
  editor.menuBar().onPresetArrow(editor.menuBar().arrowLeft());
  EXPECT_EQ(selected(), "Init");
  editor.selectPreset(library.userPresetNamed("Beta notes"));
  EXPECT_EQ(selected(), "Init");
  EXPECT_THAT(notice(), HasSubstr("Beta notes"));
}

TEST_F(PresetSessionTest, ADialogIsAboutThePresetThatItAskedFor) {
  auto& browser = editor.overlaysView().presetViewOverlay();
  browser.setHidden(false);
  choose("Beta");
  browser.handleTouchDown(browser.deleteButton());
  EXPECT_EQ(browser.confirmOverlay().subject(), "Beta");
  editor.menuBar().onPresetArrow(editor.menuBar().arrowRight());
  EXPECT_EQ(selected(), "Beta");
  unit.setCurrentPreset(3);
  loop.runDue();
  EXPECT_EQ(selected(), "Init") << "the host may";
  browser.confirmOverlay().handleTouchDown(browser.confirmOverlay().okButton());
  EXPECT_EQ(namesIn(presets()), (Names{"Alpha.synth", "Gamma.synth"}));
  EXPECT_EQ(selected(), "Init");
  choose("Alpha");
  browser.handleTouchDown(browser.editButton());
  unit.setCurrentPreset(3);
  loop.runDue();
  browser.saveNewPresetOverlay().textField().setText("Omega");
  browser.saveNewPresetOverlay().handleTouchDown(browser.saveNewPresetOverlay().okButton());
  EXPECT_EQ(namesIn(presets()), (Names{"Gamma.synth", "Omega.synth"}));
}

TEST_F(PresetSessionTest, CategoriesAreThoseOfThePresetAtHand) {
  auto& browser = editor.overlaysView().presetViewOverlay();
  auto& panel = browser.saveNewPresetOverlay();
  browser.setHidden(false);
  session.save(*named("Alpha"), {"Bass", "Vintage"});
  browser.handleTouchDown(browser.editButton());
  EXPECT_THAT(panel.categorySelector().selectedValues(), ElementsAre("Bass"));
  panel.handleTouchDown(panel.okButton());
  EXPECT_THAT(named("Alpha")->categories, ElementsAre("bass", "vintage"))
      << "also what the panel does not offer";
  browser.handleTouchDown(browser.saveNewButton());
  EXPECT_THAT(panel.categorySelector().selectedValues(), IsEmpty()) << "not the last one's";
  panel.textField().setText("New");
  panel.categorySelector().setSelectedValues({"Lead"});
  panel.handleTouchDown(panel.okButton());
  browser.handleTouchDown(browser.saveButton());
  EXPECT_THAT(named("New")->categories, ElementsAre("lead")) << "saved over, they stay";
}

TEST_F(PresetSessionTest, SeveralPresetsGetAndLoseTheCategoriesThatAreSwitched) {
  auto& browser = editor.overlaysView().presetViewOverlay();
  auto& panel = browser.saveNewPresetOverlay();
  session.save(*named("Alpha"), {"Bass", "Vintage"});
  session.save(*named("Beta"), {"Bass", "Lead"});
  set(999);
  browser.setHidden(false);
  for (const char* name : {"Alpha", "Beta", "Gamma"}) library.toggleMark(named(name));
  const auto before = support::textOf(named("Gamma")->url);
  EXPECT_EQ(browser.editButton().title(), "CATEGORIES");
  browser.handleTouchDown(browser.editButton());
  EXPECT_TRUE(panel.textField().isHidden());
  EXPECT_THAT(panel.categorySelector().selectedValues(), ElementsAre("Bass")) << "all have it";
  panel.categorySelector().setSelectedValues({"Lead"});
  panel.handleTouchDown(panel.okButton());
  EXPECT_TRUE(panel.isHidden());
  EXPECT_THAT(named("Alpha")->categories, ElementsAre("vintage", "lead"));
  EXPECT_THAT(named("Beta")->categories, ElementsAre("lead"));
  EXPECT_THAT(named("Gamma")->categories, ElementsAre("lead"));
  EXPECT_EQ(listAt(named("Gamma")->url).find("parameters")->find("cutoff")->number(), 300);
  EXPECT_EQ(notice(), "3 presets have other categories.");
  library.clearMarks();
  const platform::KeyEvent undo{platform::Key::character, platform::Modifiers::control, "z"};
  EXPECT_TRUE(browser.keyPressed(undo));
  EXPECT_EQ(notice(), "");
  EXPECT_THAT(named("Beta")->categories, ElementsAre("bass", "lead"));
  EXPECT_EQ(support::textOf(named("Gamma")->url), before);
  EXPECT_EQ(selected(), "Alpha");
  EXPECT_EQ(cutoff(), 999) << "the sound is another matter";
}

TEST_F(PresetSessionTest, TheMenuOfTheNameOffersWhatCanBeDoneNow) {
  kestroui::ListPopupOwner& menu = editor.menuBar();
  const auto choose = [&](int index) {
    editor.menuBar().onPresetMenu();
    menu.popupDidChoose(index);
    loop.runDue();
  };
  const auto entries = [&] {
    editor.menuBar().onPresetMenu();
    menu.popupDidCancel();
    return menu.popupEntries();
  };
  EXPECT_THAT(entries(), ElementsAre("Save as a new preset"));
  set(150);
  EXPECT_THAT(entries(), ElementsAre("Revert to \u201cAlpha\u201d", "Save \u201cAlpha\u201d",
                                     "Save as a new preset"));
  choose(0);
  EXPECT_EQ(cutoff(), 100);
  EXPECT_THAT(entries(), ElementsAre("Undo: \u201cAlpha\u201d was changed and not saved.",
                                     "Save as a new preset"));
  choose(0);
  EXPECT_EQ(cutoff(), 150);
  choose(1);
  EXPECT_EQ(listAt(named("Alpha")->url).find("parameters")->find("cutoff")->number(), 150);
  EXPECT_FALSE(editor.menuBar().isPresetModified());
  choose(1);
  auto& browser = editor.overlaysView().presetViewOverlay();
  EXPECT_FALSE(browser.isHidden());
  EXPECT_FALSE(browser.saveNewPresetOverlay().isHidden());
  EXPECT_FALSE(browser.isEdit());
}

TEST_F(PresetSessionTest, CategoriesOfVeryLongFilesComeLaterButBeforeAnyoneSavesThem) {
  const auto write = [&](const char* name) {
    folder.write(std::string("data/Presets/") + name + ".synth",
                 foundation::writeXmlPropertyList(platform::PropertyList::Dictionary{
                     {"Aaa", std::string(400000, 'x')},
                     {"Categories", platform::PropertyList::Array{"lead"}},
                     {"parameters", platform::PropertyList::Dictionary{{"cutoff", 400}}}}));
  };
  const auto read = [this] {
    foundation::DispatchQueue::waitForGlobal();
    for (int turn = 0; turn < 2; ++turn) loop.runDue();
  };
  write("Long");
  library.setFilter({.categories = {"Lead"}});
  library.reload();
  EXPECT_EQ(library.shown().size(), 0u);
  read();
  EXPECT_EQ(library.shown().size(), 1u);
  EXPECT_THAT(named("Long")->categories, ElementsAre("lead"));
  library.setFilter({});
  write("Other");
  library.reload();
  choose("Other");
  EXPECT_EQ(cutoff(), 400);
  EXPECT_THAT(named("Other")->categories, ElementsAre("lead"));
  read();
  EXPECT_EQ(selected(), "Other");
}

}  // namespace
