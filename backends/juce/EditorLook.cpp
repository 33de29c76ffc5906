#include "backends/juce/EditorLook.h"

#include "KestroUI/Theme.h"
#include "backends/juce/JuceInput.h"

namespace juce_backend {
namespace {

namespace Theme = kestroui::Theme;

constexpr float buttonRadius = 3;

juce::LookAndFeel_V4::ColourScheme scheme() {
  return {toColour(Theme::background), toColour(Theme::panel),   toColour(Theme::menu),
          toColour(Theme::line),       toColour(Theme::text),    toColour(Theme::surface),
          toColour(Theme::text),       toColour(Theme::surface), toColour(Theme::text)};
}

/// A folder in outline, or nothing for a file, whose name says enough.
void drawFolder(juce::Graphics& graphics, juce::Rectangle<float> place) {
  juce::Path folder;
  const float tab = place.getHeight() * 0.22f;
  folder.startNewSubPath(place.getX(), place.getY());
  folder.lineTo(place.getX() + place.getWidth() * 0.38f, place.getY());
  folder.lineTo(place.getX() + place.getWidth() * 0.5f, place.getY() + tab);
  folder.lineTo(place.getRight(), place.getY() + tab);
  folder.lineTo(place.getRight(), place.getBottom());
  folder.lineTo(place.getX(), place.getBottom());
  folder.closeSubPath();
  graphics.setColour(toColour(Theme::accent.withAlpha(0.75f)));
  graphics.strokePath(folder, juce::PathStrokeType(1.3f, juce::PathStrokeType::curved));
}

}  // namespace

EditorLook::EditorLook() : juce::LookAndFeel_V4(scheme()) {
  using Contents = juce::DirectoryContentsDisplayComponent;
  const juce::Colour selected = toColour(Theme::accent.withAlpha(0.26f));
  setColour(Contents::highlightColourId, selected);
  setColour(Contents::textColourId, toColour(Theme::text));
  setColour(Contents::highlightedTextColourId, toColour(Theme::text));
  setColour(juce::ListBox::backgroundColourId, toColour(Theme::background));
  setColour(juce::ListBox::outlineColourId, toColour(Theme::line));
  setColour(juce::TextEditor::backgroundColourId, toColour(Theme::background));
  setColour(juce::TextEditor::focusedOutlineColourId, toColour(Theme::accent));
  setColour(juce::TextEditor::highlightColourId, toColour(Theme::accent.withAlpha(0.4f)));
  setColour(juce::CaretComponent::caretColourId, toColour(Theme::accent));
  setColour(juce::ComboBox::backgroundColourId, toColour(Theme::background));
  using Browser = juce::FileBrowserComponent;
  setColour(Browser::currentPathBoxBackgroundColourId, toColour(Theme::background));
  setColour(Browser::currentPathBoxTextColourId, toColour(Theme::text));
  setColour(Browser::currentPathBoxArrowColourId, toColour(Theme::lightGrey));
  setColour(Browser::filenameBoxBackgroundColourId, toColour(Theme::background));
  setColour(Browser::filenameBoxTextColourId, toColour(Theme::text));
  setColour(juce::ScrollBar::thumbColourId, toColour(Theme::grey.withAlpha(0.5f)));
  setColour(juce::PopupMenu::highlightedBackgroundColourId, selected);
}

juce::Font EditorLook::font(float height) { return {"Inter", height, juce::Font::plain}; }

void EditorLook::drawButtonBackground(juce::Graphics& graphics, juce::Button& button,
                                      const juce::Colour&, bool isHovered, bool isDown) {
  const juce::Rectangle<float> place = button.getLocalBounds().toFloat().reduced(0.5f);
  graphics.setColour(toColour(Theme::surface));
  graphics.fillRoundedRectangle(place, buttonRadius);
  if (button.isEnabled() && (isHovered || isDown)) {
    graphics.setColour(juce::Colours::white.withAlpha(isDown ? 0.14f : 0.07f));
    graphics.fillRoundedRectangle(place, buttonRadius);
  }
  graphics.setColour(
      toColour(button.hasKeyboardFocus(false) ? Theme::accent.withAlpha(0.8f) : Theme::line));
  graphics.drawRoundedRectangle(place, buttonRadius, 1);
}

void EditorLook::drawFileBrowserRow(juce::Graphics& graphics, int width, int height,
                                    const juce::File&, const juce::String& filename, juce::Image*,
                                    const juce::String&, const juce::String& time, bool isDirectory,
                                    bool isSelected, int,
                                    juce::DirectoryContentsDisplayComponent&) {
  if (isSelected) graphics.fillAll(toColour(Theme::accent.withAlpha(0.26f)));
  juce::Rectangle<int> row(width, height);
  row.reduce(10, 0);
  const juce::Rectangle<int> icon = row.removeFromLeft(height);
  if (isDirectory)
    drawFolder(graphics, icon.toFloat().withSizeKeepingCentre(static_cast<float>(height) * 0.6f,
                                                              static_cast<float>(height) * 0.44f));
  constexpr int timeWidth = 130;
  if (!isDirectory && row.getWidth() > 3 * timeWidth) {
    graphics.setFont(font(12));
    graphics.setColour(toColour(Theme::textDim));
    graphics.drawText(time, row.removeFromRight(timeWidth), juce::Justification::centredRight);
  }
  graphics.setFont(font(14));
  graphics.setColour(toColour(Theme::text));
  graphics.drawText(filename, row, juce::Justification::centredLeft);
}

void EditorLook::layoutFileBrowserComponent(juce::FileBrowserComponent& browser,
                                            juce::DirectoryContentsDisplayComponent* list,
                                            juce::FilePreviewComponent*, juce::ComboBox* path,
                                            juce::TextEditor* name, juce::Button* up) {
  constexpr int line = 26, gap = 8, labelWidth = 48;
  juce::Rectangle<int> place = browser.getLocalBounds();
  juce::Rectangle<int> top = place.removeFromTop(line);
  up->setBounds(top.removeFromRight(2 * line));
  top.removeFromRight(gap);
  path->setBounds(top);
  juce::Rectangle<int> bottom = place.removeFromBottom(line);
  bottom.removeFromLeft(labelWidth);
  name->setBounds(bottom);
  name->applyFontToAllText(font(14));
  name->setIndents(6, (line - 18) / 2);
  if (auto* component = dynamic_cast<juce::Component*>(list))
    component->setBounds(place.reduced(0, gap));
}

}  // namespace juce_backend
