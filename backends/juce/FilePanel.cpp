#include "backends/juce/FilePanel.h"

#include <algorithm>
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
  setFocusContainerType(FocusContainerType::keyboardFocusContainer);
  addAndMakeVisible(browser_);
  addAndMakeVisible(ok_);
  addAndMakeVisible(cancel_);
  browser_.setFilenameBoxLabel("Name");
  // It has taken its colours before it had this look.
  browser_.sendLookAndFeelChange();
  browser_.addListener(this);
  auto* const list = dynamic_cast<juce::FileListComponent*>(browser_.getDisplayComponent());
  if (list) list->setRowHeight(rowHeight);
  juce::Component* first = list;
  for (juce::Component* part : browser_.getChildren())
    if (auto* name = dynamic_cast<juce::TextEditor*>(part)) {
      name->setSelectAllWhenFocused(true);
      // It would keep the key to itself.
      name->onEscapeKey = [this] { finish({}); };
      if (choice_.kind == FileChoice::Kind::fileToSave) first = name;
    }
  ok_.onClick = [this] { accept(); };
  cancel_.onClick = [this] { finish({}); };
  parent.addAndMakeVisible(*this);
  setBounds(parent.getLocalBounds());
  enableOkButton();
  juce::Desktop::getInstance().addFocusChangeListener(this);
  if (first && isShowing()) first->grabKeyboardFocus();
}

FilePanel::~FilePanel() {
  juce::Desktop::getInstance().removeFocusChangeListener(this);
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

void FilePanel::paintOverChildren(juce::Graphics& graphics) {
  // JUCE's lists and boxes do not show the keyboard themselves.
  const juce::Component* focused = getCurrentlyFocusedComponent();
  if (!focused || !isParentOf(focused)) return;
  graphics.setColour(toColour(Theme::accent.withAlpha(0.8f)));
  graphics.drawRect(getLocalArea(focused, focused->getLocalBounds()), 1);
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
  } else if (key.getKeyCode() == juce::KeyPress::tabKey) {
    moveKeyboard(key.getModifiers().isShiftDown() ? -1 : 1);
  }
  // Keys that mean nothing here mean nothing below either.
  return true;
}

void FilePanel::moveKeyboard(int direction) {
  const std::vector<juce::Component*> parts = juce::KeyboardFocusTraverser().getAllComponents(this);
  if (parts.empty()) return;
  const auto count = static_cast<std::ptrdiff_t>(parts.size());
  const auto found = std::find(parts.begin(), parts.end(), getCurrentlyFocusedComponent());
  std::ptrdiff_t next = direction > 0 ? 0 : count - 1;
  if (found != parts.end()) next = (found - parts.begin() + direction + count) % count;
  parts[static_cast<std::size_t>(next)]->grabKeyboardFocus();
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
