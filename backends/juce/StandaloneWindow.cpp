#include "backends/juce/StandaloneWindow.h"

#include "backends/juce/AudioUnitEditor.h"
#include "backends/juce/MidiLearnMenu.h"

namespace juce_backend {
namespace {

constexpr int maximumSide = 8192;
constexpr const char* widthKey = "windowWidth";
constexpr const char* heightKey = "windowHeight";

constexpr int menuHeight = 24;

}  // namespace

StandaloneWindow::StandaloneWindow(const juce::String& title, EditorComponent& editor,
                                   juce::PropertiesFile& settings, orvane::MidiLearn& midiLearn,
                                   std::shared_ptr<StandaloneCloud> cloud,
                                   std::function<void(const juce::MidiMessage&)> playNote)
    : juce::DocumentWindow(title, juce::Colours::black,
                           juce::DocumentWindow::minimiseButton |
                               juce::DocumentWindow::maximiseButton |
                               juce::DocumentWindow::closeButton,
                           false),
      keyboard_(std::move(playNote)),
      settings_(settings),
      midiLearn_(midiLearn),
      cloud_(std::move(cloud)) {
  setLookAndFeel(&*look_);
  setUsingNativeTitleBar(true);
  setMenuBar(this, menuHeight);
  midiLearn_.learningChanged = [this] { menuItemsChanged(); };
  setResizable(true, false);
  setResizeLimits(AudioUnitEditor::minimumWidth, AudioUnitEditor::minimumHeight + menuHeight,
                  maximumSide, maximumSide);
  setContentNonOwned(&editor, true);
  editor.menu = [this](const std::string&) { return midiLearnMenu(midiLearn_); };

  const juce::Rectangle<int> screen =
      juce::Desktop::getInstance().getDisplays().getPrimaryDisplay()
          ? juce::Desktop::getInstance().getDisplays().getPrimaryDisplay()->userArea
          : juce::Rectangle<int>(editor.getWidth(), editor.getHeight());
  const int width = settings_.getIntValue(widthKey, editor.getWidth());
  const int height = settings_.getIntValue(heightKey, editor.getHeight());
  centreWithSize(
      juce::jlimit(AudioUnitEditor::minimumWidth,
                   juce::jmax(AudioUnitEditor::minimumWidth, screen.getWidth()), width),
      juce::jlimit(AudioUnitEditor::minimumHeight,
                   juce::jmax(AudioUnitEditor::minimumHeight, screen.getHeight()), height) +
          menuHeight);
  // With its size already: a late answer to an earlier one would bring that back.
  addToDesktop();
  setVisible(true);
  editor.grabKeyboardFocus();
}

StandaloneWindow::~StandaloneWindow() {
  keyboard_.releaseAll();
  if (!isFullScreen()) {
    settings_.setValue(widthKey, getContentComponent()->getWidth());
    settings_.setValue(heightKey, getContentComponent()->getHeight());
    settings_.save();
  }
  midiLearn_.learningChanged = nullptr;
  static_cast<EditorComponent*>(getContentComponent())->menu = nullptr;
  setMenuBar(nullptr);
  clearContentComponent();
  setLookAndFeel(nullptr);
}

void StandaloneWindow::closeButtonPressed() { juce::JUCEApplicationBase::quit(); }

void StandaloneWindow::activeWindowStatusChanged() {
  juce::DocumentWindow::activeWindowStatusChanged();
  if (!isActiveWindow()) keyboard_.releaseAll();
}

juce::StringArray StandaloneWindow::getMenuBarNames() {
  return cloud_ ? juce::StringArray{"MIDI", "Presets"} : juce::StringArray{"MIDI"};
}

juce::PopupMenu StandaloneWindow::getMenuForIndex(int index, const juce::String&) {
  return index == 0 ? midiLearnMenu(midiLearn_) : presetFolderMenu(cloud_);
}

bool StandaloneWindow::keyPressed(const juce::KeyPress& key) {
  if (key == juce::KeyPress::escapeKey && midiLearn_.isLearning()) {
    midiLearn_.setLearning(false);
    return true;
  }
  return keyboard_.keyPressed(key);
}

bool StandaloneWindow::keyStateChanged(bool) { return keyboard_.keyStateChanged(); }

}  // namespace juce_backend
