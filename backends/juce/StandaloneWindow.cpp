#include "backends/juce/StandaloneWindow.h"

#include "backends/juce/AudioUnitEditor.h"

namespace juce_backend {
namespace {

constexpr int maximumSide = 8192;
constexpr const char* widthKey = "windowWidth";
constexpr const char* heightKey = "windowHeight";

juce::PropertiesFile::Options settingsOptions() {
  juce::PropertiesFile::Options options;
  options.millisecondsBeforeSaving = -1;
  return options;
}

}  // namespace

StandaloneWindow::StandaloneWindow(const juce::String& title, EditorComponent& editor,
                                   const juce::File& settings,
                                   std::function<void(const juce::MidiMessage&)> playNote)
    : juce::DocumentWindow(title, juce::Colours::black,
                           juce::DocumentWindow::minimiseButton |
                               juce::DocumentWindow::maximiseButton |
                               juce::DocumentWindow::closeButton),
      keyboard_(std::move(playNote)),
      settings_(settings, settingsOptions()) {
  setUsingNativeTitleBar(true);
  setResizable(true, false);
  setResizeLimits(AudioUnitEditor::minimumWidth, AudioUnitEditor::minimumHeight, maximumSide,
                  maximumSide);
  setContentNonOwned(&editor, true);

  const juce::Rectangle<int> screen =
      juce::Desktop::getInstance().getDisplays().getPrimaryDisplay()
          ? juce::Desktop::getInstance().getDisplays().getPrimaryDisplay()->userArea
          : juce::Rectangle<int>(editor.getWidth(), editor.getHeight());
  const int width = settings_.getIntValue(widthKey, editor.getWidth());
  const int height = settings_.getIntValue(heightKey, editor.getHeight());
  centreWithSize(juce::jlimit(AudioUnitEditor::minimumWidth,
                              juce::jmax(AudioUnitEditor::minimumWidth, screen.getWidth()), width),
                 juce::jlimit(AudioUnitEditor::minimumHeight,
                              juce::jmax(AudioUnitEditor::minimumHeight, screen.getHeight()),
                              height));
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
  clearContentComponent();
}

void StandaloneWindow::closeButtonPressed() {
  juce::JUCEApplicationBase::quit();
}

void StandaloneWindow::activeWindowStatusChanged() {
  juce::DocumentWindow::activeWindowStatusChanged();
  if (!isActiveWindow()) keyboard_.releaseAll();
}

bool StandaloneWindow::keyPressed(const juce::KeyPress& key) { return keyboard_.keyPressed(key); }

bool StandaloneWindow::keyStateChanged(bool) { return keyboard_.keyStateChanged(); }

}  // namespace juce_backend
