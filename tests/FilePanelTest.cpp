// The file chooser inside an editor, and how it looks.

#include "backends/juce/FilePanel.h"

#include <gmock/gmock.h>

#include <set>

#include "KestroUI/Theme.h"
#include "backends/juce/JuceInput.h"
#include "tests/support/OffScreenWindow.h"
#include "tests/support/TemporaryFolder.h"

namespace {

using juce_backend::EditorLook;
using juce_backend::FileChoice;
using juce_backend::FilePanel;
using testing::ElementsAre;

const juce::KeyPress returnKey(juce::KeyPress::returnKey);
const juce::KeyPress escape(juce::KeyPress::escapeKey);

class FilePanelTest : public testing::Test {
 protected:
  FilePanelTest() {
    for (const char* name : {"in/a.preset", "in/b.preset", "in/Read.me", "in/sub/c.preset"})
      folder.write(name, "x");
    parent.setSize(800, 600);
  }

  FilePanel& open(FileChoice::Kind kind, const juce::String& wildcard = "*.preset") {
    FileChoice choice;
    choice.kind = kind;
    choice.verb = "OK";
    choice.start = file("in");
    if (kind == FileChoice::Kind::fileToSave) choice.start = file("in/New.preset");
    choice.wildcard = wildcard;
    panel = std::make_unique<FilePanel>(parent, choice, [this](const juce::Array<juce::File>& f) {
      ++answers;
      names.clear();
      for (const juce::File& one : f) names.push_back(one.getFileName().toStdString());
    });
    return *panel;
  }
  juce::File file(const std::string& name) const { return juce::File(folder / name); }
  juce::FileListComponent& list() {
    return dynamic_cast<juce::FileListComponent&>(*panel->browser().getDisplayComponent());
  }
  bool lists(const std::string& name) {
    return support::runUntil([&] { return list().directoryContentsList.contains(file(name)); },
                             0.5);
  }
  void select(const std::string& name, bool alone = true) {
    // The list is read on a thread of its own.
    ASSERT_TRUE(support::runUntil([&] {
      for (int row = 0; row < list().directoryContentsList.getNumFiles(); ++row)
        if (list().directoryContentsList.getFile(row) == file(name)) {
          list().selectRow(row, true, alone);
          return list().isRowSelected(row);
        }
      return false;
    }));
  }

  juce::ScopedJuceInitialiser_GUI juceIsUp;
  support::TemporaryFolder folder;
  juce::Component parent;
  std::unique_ptr<FilePanel> panel;
  int answers = 0;
  std::vector<std::string> names;
};

TEST_F(FilePanelTest, onlyWhatCanBeChosenIsListed) {
  open(FileChoice::Kind::filesToOpen);
  EXPECT_TRUE(lists("in/b.preset"));
  EXPECT_TRUE(lists("in/sub"));
  EXPECT_FALSE(lists("in/Read.me"));
  open(FileChoice::Kind::filesToOpen, "");
  EXPECT_TRUE(lists("in/Read.me"));
}

TEST_F(FilePanelTest, severalFilesAreChosenAtOnce) {
  open(FileChoice::Kind::filesToOpen);
  EXPECT_FALSE(panel->okButton().isEnabled());
  panel->keyPressed(returnKey);
  EXPECT_EQ(answers, 0) << "there is nothing to confirm yet";
  select("in/a.preset");
  select("in/b.preset", false);
  EXPECT_TRUE(panel->okButton().isEnabled());
  panel->okButton().onClick();
  panel->keyPressed(returnKey);
  EXPECT_EQ(answers, 1);
  EXPECT_THAT(names, ElementsAre("a.preset", "b.preset"));
}

TEST_F(FilePanelTest, aDoubleClickTakesAFileAndEntersAFolder) {
  open(FileChoice::Kind::filesToOpen);
  select("in/a.preset");
  panel->browser().fileDoubleClicked(file("in/sub"));
  EXPECT_EQ(answers, 0);
  EXPECT_EQ(panel->browser().getRoot(), file("in/sub"));
  EXPECT_TRUE(panel->keyPressed(juce::KeyPress(juce::KeyPress::backspaceKey)));
  EXPECT_EQ(panel->browser().getRoot(), file("in")) << "and back";
  select("in/a.preset");
  panel->browser().fileDoubleClicked(file("in/a.preset"));
  EXPECT_THAT(names, ElementsAre("a.preset"));
}

TEST_F(FilePanelTest, aFileIsSavedByItsNameInWhateverFolder) {
  open(FileChoice::Kind::fileToSave);
  panel->browser().setRoot(file("in/sub"));
  EXPECT_EQ(panel->browser().getSelectedFile(0), file("in/sub/New.preset"));
  EXPECT_TRUE(panel->okButton().isEnabled());
  for (juce::Component* part : panel->browser().getChildren())
    if (auto* name = dynamic_cast<juce::TextEditor*>(part)) name->setText("", true);
  EXPECT_TRUE(support::runUntil([&] { return !panel->okButton().isEnabled(); }));
  panel->keyPressed(returnKey);
  EXPECT_EQ(answers, 0) << "a file without a name";
  panel->okButton().setEnabled(true);
  panel->browser().setFileName("Other.preset");
  panel->okButton().onClick();
  EXPECT_THAT(names, ElementsAre("Other.preset"));
}

TEST_F(FilePanelTest, theFolderThatIsOpenCanBeChosen) {
  open(FileChoice::Kind::folder);
  EXPECT_TRUE(panel->okButton().isEnabled());
  panel->keyPressed(returnKey);
  EXPECT_THAT(names, ElementsAre("in"));
}

TEST_F(FilePanelTest, cancellingAnswersOnceWithNothing) {
  for (const bool byKey : {false, true}) {
    open(FileChoice::Kind::folder);
    answers = 0;
    names = {"x"};
    if (byKey)
      panel->keyPressed(escape);
    else
      panel->cancelButton().onClick();
    EXPECT_EQ(answers, 1);
    panel->keyPressed(escape);
    panel->keyPressed(returnKey);
    EXPECT_EQ(answers, 1);
    EXPECT_THAT(names, ElementsAre());
  }
}

TEST_F(FilePanelTest, itHasTheKeyboardAndTheWheelToItself) {
  // As an editor does, which moves a keyboard of its own with Tab.
  struct Behind : juce::Component {
    Behind() { setWantsKeyboardFocus(true); }
    bool keyPressed(const juce::KeyPress&) override { return ++keys > 0; }
    int keys = 0;
  } behind;
  behind.setSize(800, 600);
  support::OffScreenWindow window(behind);
  behind.addAndMakeVisible(parent);
  for (const auto kind : {FileChoice::Kind::folder, FileChoice::Kind::fileToSave}) {
    open(kind);
    EXPECT_TRUE(window.key(juce::KeyPress('Z', {}, 'z')));
    for (const auto modifier : {0, static_cast<int>(juce::ModifierKeys::shiftModifier)}) {
      std::set<juce::Component*> parts;
      std::vector<juce::Component*> order;
      for (int i = 0; i < 12; ++i) {
        EXPECT_TRUE(window.key(juce::KeyPress(juce::KeyPress::tabKey, modifier, 0)));
        order.push_back(juce::Component::getCurrentlyFocusedComponent());
        parts.insert(order.back());
        ASSERT_TRUE(panel->hasKeyboardFocus(true)) << "it goes round inside";
      }
      EXPECT_GE(parts.size(), 5u) << "a path, the way up, a list and two buttons";
      EXPECT_EQ(parts.count(panel.get()), 0u);
      EXPECT_EQ(order[parts.size()], order[0]);
    }
    window.wheel({5, 5}, 1);
    EXPECT_EQ(window.wheelsLeft, 0);
  }
  EXPECT_EQ(behind.keys, 0);
  panel.reset();
  behind.removeChildComponent(&parent);
}

TEST_F(FilePanelTest, aNameIsTypedAtOnceAndEscapeClosesFromTheFieldToo) {
  support::OffScreenWindow window(parent);
  open(FileChoice::Kind::fileToSave);
  EXPECT_TRUE(window.key(juce::KeyPress('Z', {}, 'z')));
  EXPECT_EQ(panel->browser().getSelectedFile(0), file("in/z")) << "in place of the whole name";
  EXPECT_TRUE(window.key(escape));
  EXPECT_TRUE(support::runUntil([&] { return answers == 1; }, 1));
  open(FileChoice::Kind::filesToOpen);
  EXPECT_TRUE(list().hasKeyboardFocus(true));
  const auto edge = window.getLocalPoint(&list(), juce::Point<int>(60, 0));
  const auto isRinged = [&] {
    return window.screen().getPixelAt(edge.x, edge.y).getBrightness() > 0.5f;
  };
  EXPECT_TRUE(support::runUntil(isRinged, 1)) << "it shows that it has the keyboard";
  panel->okButton().grabKeyboardFocus();
  EXPECT_TRUE(support::runUntil([&] { return !isRinged(); }, 1));
  list().grabKeyboardFocus();
  EXPECT_NE(panel->browser().getRoot(), file("in").getParentDirectory());
  EXPECT_TRUE(window.key(juce::KeyPress(juce::KeyPress::backspaceKey)));
  EXPECT_EQ(panel->browser().getRoot(), file("in").getParentDirectory());
}

TEST_F(FilePanelTest, allItsPartsHaveRoomOfTheirOwnAtAnySize) {
  open(FileChoice::Kind::fileToSave);
  for (const auto& [width, height] : {std::pair{800, 600}, {480, 320}, {1600, 1000}}) {
    parent.setSize(width, height);
    ASSERT_EQ(panel->getBounds(), parent.getLocalBounds());
    std::vector<juce::Rectangle<int>> places;
    for (juce::Component* part : panel->getChildren())
      if (part != &panel->browser()) places.push_back(part->getBounds());
    for (juce::Component* part : panel->browser().getChildren())
      if (!dynamic_cast<juce::Label*>(part))
        places.push_back(panel->getLocalArea(&panel->browser(), part->getBounds()));
    EXPECT_EQ(places.size(), 6u) << "two buttons, a list, a path, a name and the way up";
    for (std::size_t i = 0; i < places.size(); ++i) {
      EXPECT_GE(places[i].getHeight(), 20) << places[i].toString();
      EXPECT_TRUE(panel->getLocalBounds().contains(places[i])) << places[i].toString();
      for (std::size_t k = 0; k < i; ++k)
        EXPECT_FALSE(places[i].intersects(places[k]))
            << places[i].toString() << " and " << places[k].toString();
    }
  }
}

TEST_F(FilePanelTest, itIsInTheEditorsColoursAndType) {
  open(FileChoice::Kind::fileToSave);
  EXPECT_EQ(EditorLook::font(14).getTypefaceName(), "Inter");
  const juce::Colour ground = juce_backend::toColour(kestroui::Theme::background);
  juce::Image picture(juce::Image::RGB, 800, 600, true, juce::SoftwareImageType());
  juce::Graphics graphics(picture);
  panel->paintEntireComponent(graphics, false);
  const auto inList = panel->getLocalPoint(&list(), juce::Point<int>(8, list().getHeight() - 8));
  EXPECT_EQ(picture.getPixelAt(inList.x, inList.y), ground);
  EXPECT_NE(picture.getPixelAt(3, 3), picture.getPixelAt(400, 60)) << "stands out of the editor";
}

TEST_F(FilePanelTest, rowsTellFoldersFilesAndWhatIsChosenApart) {
  open(FileChoice::Kind::filesToOpen);
  EditorLook look;
  const auto row = [&](bool isFolder, bool isSelected, int width) {
    juce::Image picture(juce::Image::RGB, width, 26, true, juce::SoftwareImageType());
    juce::Graphics graphics(picture);
    look.drawFileBrowserRow(graphics, width, 26, {}, "name", nullptr, {}, "23 Nov 2026", isFolder,
                            isSelected, 0, list());
    return picture;
  };
  const auto hasInk = [](const juce::Image& picture, int from, int to) {
    for (int y = 0; y < picture.getHeight(); ++y)
      for (int x = from; x < to; ++x)
        if (picture.getPixelAt(x, y).getBrightness() > 0.2f) return true;
    return false;
  };
  EXPECT_TRUE(hasInk(row(true, false, 600), 0, 36)) << "a folder has its sign";
  EXPECT_FALSE(hasInk(row(false, false, 600), 0, 36));
  EXPECT_TRUE(hasInk(row(false, false, 600), 36, 100)) << "the name";
  EXPECT_TRUE(hasInk(row(false, false, 600), 460, 600)) << "the time";
  EXPECT_FALSE(hasInk(row(true, false, 600), 460, 600));
  EXPECT_FALSE(hasInk(row(false, false, 300), 160, 300)) << "no room for the time";
  EXPECT_NE(row(false, true, 300).getPixelAt(2, 2), row(false, false, 300).getPixelAt(2, 2));
}

TEST_F(FilePanelTest, buttonsShowTheMouseAndThePress) {
  EditorLook look;
  juce::TextButton button;
  button.setSize(80, 26);
  const auto face = [&](bool hovered, bool down, bool enabled) {
    button.setEnabled(enabled);
    juce::Image picture(juce::Image::RGB, 80, 26, true, juce::SoftwareImageType());
    juce::Graphics graphics(picture);
    look.drawButtonBackground(graphics, button, {}, hovered, down);
    return picture.getPixelAt(40, 13).getBrightness();
  };
  EXPECT_LT(face(false, false, true), face(true, false, true));
  EXPECT_LT(face(true, false, true), face(true, true, true));
  EXPECT_EQ(face(true, true, false), face(false, false, false));
}

}  // namespace
