#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

namespace juce_backend {

/// The editor's colours and type on what JUCE itself draws: menus, menu bars and file choosers. Held
/// through a juce::SharedResourcePointer by whoever sets it on a component; message thread.
class EditorLook : public juce::LookAndFeel_V4 {
 public:
  EditorLook();

  /// The family that the editor's own texts are in.
  static juce::Font font(float height);

  juce::Font getPopupMenuFont() override { return font(14); }
  juce::Font getMenuBarFont(juce::MenuBarComponent&, int, const juce::String&) override {
    return font(13);
  }
  juce::Font getComboBoxFont(juce::ComboBox&) override { return font(14); }
  juce::Font getTextButtonFont(juce::TextButton&, int) override { return font(13); }
  juce::Font getLabelFont(juce::Label& label) override { return font(label.getFont().getHeight()); }

  void drawButtonBackground(juce::Graphics& graphics, juce::Button& button,
                            const juce::Colour& background, bool isHovered, bool isDown) override;
  void drawFileBrowserRow(juce::Graphics& graphics, int width, int height, const juce::File& file,
                          const juce::String& filename, juce::Image* icon, const juce::String& size,
                          const juce::String& time, bool isDirectory, bool isSelected, int index,
                          juce::DirectoryContentsDisplayComponent& list) override;
  void layoutFileBrowserComponent(juce::FileBrowserComponent& browser,
                                  juce::DirectoryContentsDisplayComponent* list,
                                  juce::FilePreviewComponent* preview, juce::ComboBox* path,
                                  juce::TextEditor* name, juce::Button* up) override;
};

}  // namespace juce_backend
