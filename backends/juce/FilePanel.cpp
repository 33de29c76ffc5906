#include "backends/juce/FilePanel.h"

#include <utility>

#include "KestroUI/Theme.h"
#include "Orvane/OverlayStyle.h"
#include "backends/juce/JuceInput.h"

namespace juce_backend {
namespace {

namespace Theme = kestroui::Theme;

constexpr int line = 26, gap = 12, buttonWidth = 110, rowHeight = 26;
constexpr int maxWidth = 640, maxHeight = 520;

}  // namespace

int FileChoice::flags() const {
  using Browser = juce::FileBrowserComponent;
  switch (kind) {
    case Kind::fileToSave:
      return Browser::saveMode | Browser::canSelectFiles | Browser::doNotClearFileNameOnRootChange;
    case Kind::folder:
      return Browser::openMode | Browser::canSelectDirectories;
    case Kind::filesToOpen:
      break;
  }
  return Browser::openMode | Browser::canSelectFiles | Browser::canSelectMultipleItems;
}

FilePanel::FilePanel(juce::Component& parent, const FileChoice& choice, Answer answer)
    : choice_(choice),
      answer_(std::move(answer)),
      filter_(choice.wildcard.isEmpty() ? "*" : choice.wildcard, "*", {}),
      browser_(choice.flags(), choice.start, &filter_, nullptr),
      ok_(choice.verb) {
  setLookAndFeel(&*look_);
  setWantsKeyboardFocus(true);
  addAndMakeVisible(browser_);
  addAndMakeVisible(ok_);
  addAndMakeVisible(cancel_);
  browser_.setFilenameBoxLabel("Name");
  // It has taken its colours before it had this look.
  browser_.sendLookAndFeelChange();
  browser_.addListener(this);
  if (auto* list = dynamic_cast<juce::FileListComponent*>(browser_.getDisplayComponent()))
    list->setRowHeight(rowHeight);
  ok_.onClick = [this] { accept(); };
  cancel_.onClick = [this] { finish({}); };
  parent.addAndMakeVisible(*this);
  setBounds(parent.getLocalBounds());
  enableOkButton();
  if (isShowing()) grabKeyboardFocus();
}

FilePanel::~FilePanel() {
  browser_.removeListener(this);
  setLookAndFeel(nullptr);
}

juce::Rectangle<int> FilePanel::panel() const {
  return getLocalBounds().withSizeKeepingCentre(juce::jmin(maxWidth, getWidth() - 2 * gap),
                                                juce::jmin(maxHeight, getHeight() - 2 * gap));
}

void FilePanel::paint(juce::Graphics& graphics) {
  graphics.fillAll(toColour(orvane::OverlayStyle::backdropColor()));
  const juce::Rectangle<float> place = panel().toFloat();
  const auto radius = static_cast<float>(orvane::OverlayStyle::cornerRadius());
  graphics.setColour(toColour(Theme::panel));
  graphics.fillRoundedRectangle(place, radius);
  graphics.setColour(toColour(Theme::line));
  graphics.drawRoundedRectangle(place.reduced(0.5f), radius, 1);
  graphics.setColour(toColour(Theme::text));
  graphics.setFont(EditorLook::font(16));
  graphics.drawText(choice_.title, panel().reduced(gap).removeFromTop(line),
                    juce::Justification::centred);
}

void FilePanel::resized() {
  juce::Rectangle<int> place = panel().reduced(gap);
  place.removeFromTop(line + gap / 2);
  juce::Rectangle<int> buttons = place.removeFromBottom(line);
  place.removeFromBottom(gap);
  ok_.setBounds(buttons.removeFromRight(buttonWidth));
  buttons.removeFromRight(gap / 2);
  cancel_.setBounds(buttons.removeFromRight(buttonWidth));
  browser_.setBounds(place);
}

void FilePanel::parentSizeChanged() {
  if (getParentComponent()) setBounds(getParentComponent()->getLocalBounds());
}

bool FilePanel::keyPressed(const juce::KeyPress& key) {
  if (key == juce::KeyPress::escapeKey) {
    finish({});
  } else if (key == juce::KeyPress::returnKey) {
    accept();
  } else if (key == juce::KeyPress::backspaceKey) {
    browser_.goUp();
  } else {
    // Keys that mean nothing here mean nothing below either; Tab goes round inside.
    return key.getKeyCode() != juce::KeyPress::tabKey;
  }
  return true;
}

void FilePanel::enableOkButton() {
  const bool hasName = choice_.kind == FileChoice::Kind::folder ||
                       !browser_.getSelectedFile(0).getFileName().isEmpty();
  ok_.setEnabled(hasName && browser_.getNumSelectedFiles() > 0 && browser_.currentFileIsValid());
}

void FilePanel::fileDoubleClicked(const juce::File& file) {
  // A folder has been entered already.
  if (!file.isDirectory()) accept();
}

void FilePanel::accept() {
  juce::Array<juce::File> files;
  for (int i = 0; i < browser_.getNumSelectedFiles(); ++i) files.add(browser_.getSelectedFile(i));
  if (ok_.isEnabled() && !files.isEmpty()) finish(files);
}

void FilePanel::finish(const juce::Array<juce::File>& files) {
  if (const Answer answer = std::exchange(answer_, nullptr)) answer(files);
}

}  // namespace juce_backend
