#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "Orvane/AlertPanel.h"
#include "backends/juce/FileExport.h"
#include "backends/juce/FilePanel.h"
#include "platform/Presentation.h"
#include "toolkit/ModalView.h"

namespace juce_backend {

/// What an editor shows beyond itself on a desktop: the system's file choosers, or one inside the
/// editor where the system has none, and messages in the editor's own look. A share sheet is a
/// file chooser that says where the files go; nothing there is replaced without a question. Owned by
/// the editor's component. Message thread.
class DesktopPresentation : public platform::Presentation, private juce::AsyncUpdater {
 public:
  /// Both outlive it: the component that the editor is in, and its root view.
  DesktopPresentation(juce::Component& component, toolkit::View& root);
  ~DesktopPresentation() override;

  Idiom userInterfaceIdiom() const override { return Idiom::desktop; }
  void present(const platform::DocumentPicker& picker) override;
  void present(const platform::ActivitySheet& sheet) override;
  void present(const platform::Alert& alert) override;

  orvane::AlertPanel& alertPanel() { return alerts_; }
  /// The chooser inside the editor while it is open, else null.
  FilePanel* filePanel() const { return filePanel_.get(); }
  /// Off: choosers are always the ones inside the editor.
  bool usesSystemChoosers = true;

 private:
  using Answer = std::function<void(const std::vector<juce::File>& files)>;

  /// In place of a chooser that is still open. `answer` is not called when the user cancels.
  void choose(const FileChoice& choice, Answer answer);
  void chosen(const juce::Array<juce::File>& files, const Answer& answer);
  void saveAs(const std::string& path);
  void copy(std::vector<FileExport::Copy> copies);
  void copyNow(const std::vector<FileExport::Copy>& copies);
  void closeFilePanel();
  void handleAsyncUpdate() override { closedPanel_.reset(); }

  juce::Component& component_;
  toolkit::View& root_;
  /// Shown while the chooser inside the editor is open: the editor has no keyboard, takes no files and
  /// tells assistive technology nothing until it gets the keyboard back.
  toolkit::ModalView behindPanel_;
  orvane::AlertPanel alerts_;
  std::unique_ptr<juce::FileChooser> systemChooser_;
  std::unique_ptr<FilePanel> filePanel_;
  /// Until its buttons, one of which may have closed it, have done all they do.
  std::unique_ptr<FilePanel> closedPanel_;
  /// Where the user was last.
  juce::File folder_;
};

}  // namespace juce_backend
