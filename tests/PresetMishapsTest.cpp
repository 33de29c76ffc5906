// What goes wrong with presets: the list says what is there, the console says why, nothing is lost.

#include <gmock/gmock.h>

#include "tests/support/PresetBench.h"
#include "tests/support/TestEditor.h"

namespace {

using support::namesIn;
using support::textOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using Names = std::set<std::string>;

class Editor : public support::TestController {
 public:
  Editor() : TestController(std::make_shared<support::GivenDesign>()) {}
  std::string groupBundleId() override { return "group.test"; }
};

class PresetMishapsTest : public support::PresetBench {
 protected:
  PresetMishapsTest() {
    editor.setAudioUnit(&unit);
    window.show(editor);
    loop.runDue();
    browser().setHidden(false);
    save("Foam", 500);
  }
  orvane::PresetViewOverlay& browser() { return editor.overlaysView().presetViewOverlay(); }
  orvane::PresetListTableViewController& list() {
    return browser().presetListTableViewController();
  }
  std::string presets() { return folder / "data/Presets"; }
  void save(const std::string& name, float cutoff) {
    unit.setParameter("cutoff", cutoff);
    confirm(browser().saveNewButton(), name);
  }
  /// Opens the name panel with a button, and answers it.
  void confirm(toolkit::Control& button, const std::string& name) {
    browser().handleTouchDown(button);
    browser().saveNewPresetOverlay().textField().setText(name);
    auto& ok = browser().saveNewPresetOverlay().okButton();
    browser().saveNewPresetOverlay().handleTouchDown(ok);
  }
  /// Of all user presets in the list.
  std::vector<std::string> users() {
    std::vector<std::string> names;
    for (const auto& preset : list().presetFileListFiltered())
      if (preset->isUserPreset) names.push_back(preset->name);
    return names;
  }
  void choose(const std::string& name) {
    for (const auto& preset : list().presetFileList())
      if (preset->name == name) return editor.selectPreset(preset);
    FAIL() << name << " is not in the list";
  }
  std::string selected() {
    return list().selectedPreset() ? list().selectedPreset()->name : "none";
  }
  float cutoff() { return unit.parameter("cutoff")->value(); }

  Editor editor;
  support::EditorWindow window{{800, 600}};
};

TEST_F(PresetMishapsTest, APresetThatIsGoneOrBrokenLeavesTheSoundAndTheSelectionAsTheyWere) {
  save("Gone", 600);
  save("Broken", 700);
  choose("Foam");
  EXPECT_EQ(cutoff(), 500);
  std::filesystem::remove(presets() + "/Gone.synth");
  choose("Gone");
  EXPECT_EQ(selected(), "Foam");
  EXPECT_THAT(users(), ElementsAre("Broken", "Foam"));
  folder.write("data/Presets/Broken.synth", "x");
  choose("Broken");
  EXPECT_EQ(selected(), "Foam");
  EXPECT_THAT(users(), ElementsAre("Broken", "Foam")) << "it is still there to be deleted";
  EXPECT_EQ(cutoff(), 500);
  EXPECT_THAT(printed, ElementsAre(HasSubstr("The state cannot be read")));
}

TEST_F(PresetMishapsTest, WhatOthersSaveAndDeleteIsThereWhenTheBrowserOpensAgain) {
  const std::string other = textOf(presets() + "/Foam.synth");
  browser().setHidden(true);
  folder.write("data/Presets/Theirs.synth", other);
  std::filesystem::remove(presets() + "/Foam.synth");
  browser().setHidden(false);
  EXPECT_THAT(users(), ElementsAre("Theirs"));
  EXPECT_EQ(selected(), "none") << "nothing can be done to what is gone";
  EXPECT_FALSE(browser().deleteButton().isEnabled());
}

TEST_F(PresetMishapsTest, ANameThatCannotBeAFilesIsRefusedWithTheReasonAndThePanelWaits) {
  const struct {
    std::string name;
    const char* why;
  } cases[] = {{std::string(300, 'n'), "that long"},
               {"AC/DC", "cannot hold \u201c/\u201d"},
               {"", "needs a name"},
               {"  ", "needs a name"}};
  for (const auto& [name, why] : cases)
    for (auto* button : {&browser().editButton(), &browser().saveNewButton()}) {
      confirm(*button, name);
      EXPECT_THAT(editor.noticeView().text(), HasSubstr(why));
      EXPECT_FALSE(browser().saveNewPresetOverlay().isHidden());
      EXPECT_EQ(browser().saveNewPresetOverlay().textField().text(), name);
      browser().closeDialog();
    }
  EXPECT_EQ(namesIn(presets()), Names{"Foam.synth"});
  EXPECT_EQ(selected(), "Foam");
  EXPECT_EQ(orvane::FavPresetsStore::favouritePresets.size(), 1u) << "Foam's alone";
}

TEST_F(PresetMishapsTest, ARenameToANameThatExistsAsksAndNoKeepsBoth) {
  save("Spray", 900);
  for (bool yes : {false, true}) {
    confirm(browser().editButton(), "Foam");
    ASSERT_FALSE(browser().replaceOverlay().isHidden());
    auto& question = browser().replaceOverlay();
    question.handleTouchDown(yes ? question.okButton() : question.cancelButton());
    EXPECT_EQ(namesIn(presets()), yes ? Names{"Foam.synth"} : (Names{"Foam.synth", "Spray.synth"}));
  }
  EXPECT_EQ(selected(), "Foam");
  EXPECT_EQ(cutoff(), 900);
}

TEST_F(PresetMishapsTest, AFileThatCannotBeImportedIsNotChosen) {
  editor.importPresetFile(folder / "none.synth");
  EXPECT_THAT(printed, ElementsAre(HasSubstr("Unable to copy preset file... \"none.synth\"")));
  EXPECT_EQ(selected(), "Foam");
  EXPECT_THAT(users(), ElementsAre("Foam"));
  editor.importPresetFile(folder.write("in/Text.synth", "no preset"));
  EXPECT_EQ(selected(), "Foam");
  EXPECT_THAT(users(), ElementsAre("Foam", "Text"));
  EXPECT_EQ(cutoff(), 500);
}

}  // namespace
