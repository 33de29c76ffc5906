// What an editor on a desktop shows beyond itself, and the files that come in and go out.

#include <gmock/gmock.h>

#include <filesystem>

#include "backends/juce/EditorComponent.h"
#include "foundation/DefaultFileManager.h"
#include "foundation/LocalFileManager.h"
#include "foundation/PropertyListCoding.h"
#include "tests/support/JuceBench.h"
#include "tests/support/OffScreenWindow.h"
#include "tests/support/TemporaryFolder.h"

namespace {

using juce_backend::EditorComponent;
using orvane::AlertPanel;
using platform::Key;
using support::namesIn;
using support::textOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using Names = std::set<std::string>;

/// Keeps presets and lets them come in and go out.
class Editor : public support::TestController {
 public:
  Editor() : TestController(std::make_shared<support::GivenDesign>()) {
    allowImportAndExport = true;
  }
  std::string groupBundleId() override { return "group.test"; }
};

class JucePresentationTest : public testing::Test {
 protected:
  JucePresentationTest()
      : editor([this] {
          auto controller = std::make_unique<Editor>();
          controller->setAudioUnit(&unit);
          return controller;
        }) {
    editor.setSize(600, 400);
    editor.presentation().usesSystemChoosers = false;
    editor.window().prepareFrame();
  }

  juce_backend::DesktopPresentation& presentation() { return editor.presentation(); }
  AlertPanel& alert() { return presentation().alertPanel(); }
  std::string alertTitle() { return alert().message() ? alert().message()->title : ""; }
  bool key(Key name) {
    platform::KeyEvent event;
    event.key = name;
    return editor.window().keyPressed(event);
  }
  /// A preset with this value of "mix".
  std::string preset(const std::string& name, double mix) {
    return folder.write(name,
                        foundation::writeXmlPropertyList(platform::PropertyList::Dictionary{
                            {"parameters", platform::PropertyList::Dictionary{{"mix", mix}}}}));
  }
  double mix() { return unit.parameter("mix")->value(); }
  static juce::StringArray strings(std::initializer_list<std::string> paths) {
    juce::StringArray result;
    for (const std::string& path : paths) result.add(path);
    return result;
  }
  /// Answers the chooser for one file with a path.
  void saveTo(const std::string& path) {
    const juce::File file(path);
    ASSERT_TRUE(presentation().filePanel());
    presentation().filePanel()->browser().setRoot(file.getParentDirectory());
    presentation().filePanel()->browser().setFileName(file.getFileName());
    presentation().filePanel()->keyPressed(juce::KeyPress(juce::KeyPress::returnKey));
    EXPECT_FALSE(presentation().filePanel());
  }

  juce::ScopedJuceInitialiser_GUI juceIsUp;
  support::TemporaryFolder folder;
  foundation::LocalFileManager files{
      folder / "data", foundation::LocalFileManager::Groups::oneForAll, nullptr, folder / "tmp/"};
  foundation::DefaultFileManager scope{files};
  support::RenderLog unit;
  EditorComponent editor;
};

TEST_F(JucePresentationTest, alertsWaitForEachOtherAndGiveTheKeyboardBack) {
  auto& before = static_cast<Editor&>(editor.controller()).enterValueOverlay();
  before.setHidden(false);
  ASSERT_TRUE(before.textField().isFirstResponder());
  presentation().present(platform::Alert{"Error", "No preset selected", "OK"});
  presentation().present(platform::Alert{"Error", "No preset selected", "OK"});
  presentation().present(platform::Alert{"Another", "Text", "OK"});
  editor.window().prepareFrame();
  EXPECT_EQ(alertTitle(), "Error");
  EXPECT_EQ(alert().message()->text, "No preset selected");
  EXPECT_EQ(alert().message()->buttons, std::vector<std::string>{"OK"});
  EXPECT_EQ(alert().frame(), (platform::Rect{0, 0, 600, 400}));
  EXPECT_TRUE(alert().button(0).isFirstResponder());
  editor.setSize(700, 500);
  EXPECT_EQ(alert().frame(), (platform::Rect{0, 0, 700, 500}));
  EXPECT_TRUE(key(Key::down)) << "nothing reaches the editor below";
  EXPECT_TRUE(key(Key::returnKey));
  EXPECT_EQ(alertTitle(), "Another");
  EXPECT_TRUE(key(Key::escape));
  EXPECT_EQ(alert().superview(), nullptr);
  EXPECT_TRUE(before.textField().isFirstResponder());
}

TEST_F(JucePresentationTest, anExportedFileIsSavedWhereTheUserSaysAndReplacesNothingUnasked) {
  const std::string from = preset("tmp/Lead.preset", 10);
  const std::string to = folder / "Mine.preset";
  presentation().present(platform::ActivitySheet{{from}, {}});
  EXPECT_EQ(presentation().filePanel()->browser().getSelectedFile(0).getFileName(),
            juce::String("Lead.preset"));
  saveTo(folder / "Mine");
  EXPECT_EQ(textOf(to), textOf(from)) << "with its extension";
  EXPECT_EQ(alertTitle(), "");

  const std::string first = textOf(to);
  preset("tmp/Lead.preset", 20);
  for (const std::size_t button : {0u, 1u}) {
    presentation().present(platform::ActivitySheet{{from}, {}});
    saveTo(to);
    EXPECT_EQ(alertTitle(), "Replace?");
    ASSERT_TRUE(alert().message());
    EXPECT_THAT(alert().message()->text, HasSubstr("\"Mine.preset\" exists"));
    EXPECT_EQ(alert().message()->buttons, (std::vector<std::string>{"CANCEL", "REPLACE"}));
    alert().answer(button);
    EXPECT_EQ(textOf(to) == first, button == 0);
  }
  EXPECT_EQ(alertTitle(), "");

  presentation().present(platform::ActivitySheet{{from}, {}});
  std::filesystem::remove(from);
  saveTo(folder / "Other.preset");
  EXPECT_EQ(alertTitle(), "Not exported");
  ASSERT_TRUE(alert().message());
  EXPECT_THAT(alert().message()->text, HasSubstr("\"Lead.preset\" could not be read"));
  EXPECT_THAT(namesIn(folder.path()), testing::Not(testing::Contains("Other.preset")));
}

TEST_F(JucePresentationTest, whileTheChooserIsOpenTheEditorBehindHasNoKeyboardAndTellsNothing) {
  auto& dialog = static_cast<Editor&>(editor.controller()).enterValueOverlay();
  const auto told = [this] {
    editor.accessibleEditor().update();
    return editor.accessibleEditor().elements().size();
  };
  dialog.setHidden(false);
  editor.window().prepareFrame();
  const auto before = told();
  EXPECT_GT(before, 0u);
  for (int i = 0; i < 2; ++i) {
    presentation().present(platform::ActivitySheet{{preset("tmp/Lead.preset", 10)}, {}});
    EXPECT_EQ(editor.window().firstResponder(), nullptr);
    key(Key::tab);
    EXPECT_EQ(editor.window().firstResponder(), nullptr);
    EXPECT_EQ(told(), 0u);
  }
  presentation().filePanel()->cancelButton().onClick();
  EXPECT_TRUE(dialog.textField().isFirstResponder());
  EXPECT_EQ(told(), before);
}

TEST_F(JucePresentationTest, onlyOneChooserIsOpenAndTheNextBeginsWhereTheUserWas) {
  const std::string from = preset("tmp/Lead.preset", 10);
  std::filesystem::create_directory(folder / "out");
  presentation().present(platform::ActivitySheet{{}, {}});
  EXPECT_FALSE(presentation().filePanel()) << "nothing to export";
  support::OffScreenWindow window(editor);
  presentation().present(platform::ActivitySheet{{from}, {}});
  presentation().present(platform::ActivitySheet{{from}, {}});
  int shown = 0;
  for (juce::Component* child : editor.getChildren())
    shown += child->isVisible() && dynamic_cast<juce_backend::FilePanel*>(child);
  EXPECT_EQ(shown, 1);
  EXPECT_TRUE(presentation().filePanel()->hasKeyboardFocus(true));
  saveTo(folder / "out/Mine.preset");
  EXPECT_TRUE(editor.hasKeyboardFocus(false)) << "the keyboard comes back";
  const juce::File out(folder / "out");
  presentation().present(platform::ActivitySheet{{from}, {}});
  EXPECT_EQ(presentation().filePanel()->browser().getRoot(), out);
  presentation().present(platform::ActivitySheet{{folder / "tmp/"}, {}});
  EXPECT_EQ(presentation().filePanel()->browser().getRoot(), out);
  presentation().filePanel()->okButton().onClick();
  presentation().present(platform::DocumentPicker{{"org.test.preset"}, false, nullptr});
  EXPECT_EQ(presentation().filePanel()->browser().getRoot(), out) << "and not the folder above";
}

TEST_F(JucePresentationTest, pickedFilesAreImportedOneByOneOrTheFirstAlone) {
  struct Delegate : toolkit::View, platform::DocumentPickerDelegate {
    void documentPickerDidPick(const std::vector<std::string>& paths) override {
      for (const std::string& path : paths) picked.push_back(path);
      ++picks;
    }
    std::vector<std::string> picked;
    int picks = 0;
  } delegate;
  const std::string a = preset("in/a.preset", 1), b = preset("in/b.preset", 2);
  for (const char* other : {"in/Read.me", "in/nopreset"}) folder.write(other, "x");
  for (const bool all : {false, true}) {
    presentation().present(platform::DocumentPicker{{"org.test.preset"}, all, &delegate});
    auto& browser = presentation().filePanel()->browser();
    browser.setRoot(juce::File(folder / "in"));
    auto& list = dynamic_cast<juce::FileListComponent&>(*browser.getDisplayComponent());
    // The list is read on a thread of its own.
    ASSERT_TRUE(support::runUntil([&] {
      list.selectRow(0);
      list.selectRow(1, true, false);
      return list.getNumSelectedRows() == 2;
    }));
    EXPECT_EQ(list.directoryContentsList.getNumFiles(), 2) << "only presets are offered";
    delegate.picked.clear();
    delegate.picks = 0;
    presentation().filePanel()->okButton().onClick();
    EXPECT_EQ(delegate.picked, all ? (std::vector<std::string>{a, b}) : std::vector{a});
    EXPECT_EQ(delegate.picks, all ? 2 : 1);
  }
}

TEST_F(JucePresentationTest, aFolderIsExportedIntoAFolderAndOneAnswerCountsForAllItsFiles) {
  preset("tmp/UserPresets/a.preset", 1);
  preset("tmp/UserPresets/b.preset", 2);
  std::filesystem::create_directory(folder / "out");
  const std::string kept = folder.write("out/UserPresets/b.preset", "mine");
  for (const std::size_t button : {0u, 1u}) {
    presentation().present(platform::ActivitySheet{{folder / "tmp/UserPresets/"}, {}});
    presentation().filePanel()->browser().setRoot(juce::File(folder / "out"));
    presentation().filePanel()->okButton().onClick();
    ASSERT_EQ(alertTitle(), "Replace?");
    EXPECT_THAT(alert().message()->text, HasSubstr("1 of the files"));
    alert().answer(button);
    EXPECT_EQ(namesIn(folder / "out/UserPresets"),
              button == 0 ? Names{"b.preset"} : (Names{"a.preset", "b.preset"}));
    EXPECT_EQ(textOf(kept) == "mine", button == 0);
  }
  presentation().present(platform::ActivitySheet{{folder / "tmp/UserPresets/"}, {}});
  presentation().filePanel()->keyPressed(juce::KeyPress(juce::KeyPress::escapeKey));
  EXPECT_FALSE(presentation().filePanel());
  EXPECT_EQ(alertTitle(), "") << "cancelled";
}

TEST_F(JucePresentationTest, droppedPresetsAreImportedOneByOneAndOtherFilesRefused) {
  const std::string lead = preset("in/Lead.preset", 30), text = folder.write("in/Read.me", "x");
  preset("in/pack/B.preset", 50);
  preset("in/pack/A.preset", 40);
  preset("in/pack/below/C.preset", 60);
  EXPECT_FALSE(editor.isInterestedInFileDrag(strings({text, folder / "none.preset"})));
  editor.fileDragEnter(strings({text}), 5, 5);
  EXPECT_FALSE(editor.dropHint().isShown());
  EXPECT_TRUE(editor.isInterestedInFileDrag(strings({text, lead})));
  editor.fileDragEnter(strings({text, lead}), 5, 5);
  EXPECT_EQ(editor.dropHint().text(), "Drop to import \"Lead\"");
  EXPECT_TRUE(editor.dropHint().isShown());
  editor.fileDragExit({});
  EXPECT_FALSE(editor.dropHint().isShown());
  const juce::StringArray all = strings({lead, folder / "in/pack", text});
  editor.fileDragEnter(all, 5, 5);
  EXPECT_EQ(editor.dropHint().text(), "Drop to import 3 presets");
  EXPECT_THAT(namesIn(folder / "data/Presets"), IsEmpty());
  editor.filesDropped(all, 5, 5);
  EXPECT_FALSE(editor.dropHint().isShown());
  EXPECT_EQ(namesIn(folder / "data/Presets"), (Names{"A.preset", "B.preset", "Lead.preset"}));
  EXPECT_EQ(mix(), 50) << "the last one is loaded";

  auto& controller = static_cast<Editor&>(editor.controller());
  auto& browser = controller.overlaysView().presetViewOverlay();
  browser.setHidden(false);
  EXPECT_TRUE(editor.isInterestedInFileDrag(strings({lead}))) << "into the browser itself";
  for (const bool isConfirm : {false, true}) {
    toolkit::View& dialog = isConfirm ? static_cast<toolkit::View&>(browser.confirmOverlay())
                                      : browser.saveNewPresetOverlay();
    dialog.setHidden(false);
    EXPECT_FALSE(editor.isInterestedInFileDrag(strings({lead}))) << "behind a dialog";
    dialog.setHidden(true);
  }
  presentation().present(platform::ActivitySheet{{lead}, {}});
  EXPECT_FALSE(editor.isInterestedInFileDrag(strings({lead}))) << "behind the chooser";
  presentation().filePanel()->cancelButton().onClick();
  EXPECT_TRUE(editor.isInterestedInFileDrag(strings({lead})));

  controller.allowImportAndExport = false;
  EXPECT_FALSE(editor.isInterestedInFileDrag(strings({lead})));
}

}  // namespace
