#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

#include <functional>

#include "backends/juce/EditorLook.h"

namespace juce_backend {

/// What the user is to choose among the files of the desktop.
struct FileChoice {
  enum class Kind { filesToOpen, fileToSave, folder };

  Kind kind = Kind::filesToOpen;
  juce::String title;
  /// The button that confirms.
  juce::String verb;
  /// A folder to begin in, or the file to save as.
  juce::File start;
  /// "*.preset"; empty for all files.
  juce::String wildcard;

  /// juce::FileBrowserComponent's.
  int flags() const;
};

/// A file chooser inside the editor, for desktops that bring none of their own: it covers its parent
/// and stands in nobody else's way, as a modal window would. The keyboard begins at the name of what
/// is saved or at the list, and Tab goes round inside. Its owner destroys it when it is answered.
/// Message thread.
class FilePanel : public juce::Component,
                  private juce::FileBrowserListener,
                  private juce::FocusChangeListener {
 public:
  using Answer = std::function<void(const juce::Array<juce::File>& files)>;

  /// `answer` gets what was chosen, or nothing when the user has cancelled; once. It may destroy
  /// the panel.
  FilePanel(juce::Component& parent, const FileChoice& choice, Answer answer);
  ~FilePanel() override;

  juce::FileBrowserComponent& browser() { return browser_; }
  juce::TextButton& okButton() { return ok_; }
  juce::TextButton& cancelButton() { return cancel_; }

  void paint(juce::Graphics& graphics) override;
  void paintOverChildren(juce::Graphics& graphics) override;
  void resized() override;
  void parentSizeChanged() override;
  bool keyPressed(const juce::KeyPress& key) override;
  /// Nothing goes on to the editor below.
  void mouseWheelMove(const juce::MouseEvent&, const juce::MouseWheelDetails&) override {}

 private:
  void selectionChanged() override { enableOkButton(); }
  void fileClicked(const juce::File&, const juce::MouseEvent&) override {}
  void fileDoubleClicked(const juce::File& file) override;
  void browserRootChanged(const juce::File&) override { enableOkButton(); }
  void globalFocusChanged(juce::Component*) override { repaint(); }
  /// To the next (1) or previous (-1) part that can have it.
  void moveKeyboard(int direction);
  void enableOkButton();
  void accept();
  void finish(const juce::Array<juce::File>& files);
  juce::Rectangle<int> panel() const;

  juce::SharedResourcePointer<EditorLook> look_;
  const FileChoice choice_;
  Answer answer_;
  juce::WildcardFileFilter filter_;
  juce::FileBrowserComponent browser_;
  juce::TextButton ok_, cancel_{"CANCEL"};
};

}  // namespace juce_backend
