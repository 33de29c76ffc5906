#include "backends/juce/DesktopPresentation.h"

#include <utility>

#include "backends/juce/JuceInput.h"
#include "platform/FilePath.h"

namespace juce_backend {
namespace {

std::string pathOf(const juce::File& file) { return file.getFullPathName().toStdString(); }

/// The files that have one of the types, whose last part is the extension of their names.
juce::String wildcardFor(const std::vector<std::string>& types) {
  juce::StringArray wildcards;
  for (const std::string& type : types) {
    const std::string extension = platform::pathExtension(type);
    if (!extension.empty()) wildcards.add("*." + toText(extension));
  }
  return wildcards.joinIntoString(";");
}

}  // namespace

DesktopPresentation::DesktopPresentation(juce::Component& component, toolkit::View& root)
    : component_(component),
      root_(root),
      alerts_(root),
      folder_(juce::File::getSpecialLocation(juce::File::userDocumentsDirectory)) {
  if (!folder_.isDirectory())
    folder_ = juce::File::getSpecialLocation(juce::File::userHomeDirectory);
  behindPanel_.setHidden(true);
}

DesktopPresentation::~DesktopPresentation() { cancelPendingUpdate(); }

void DesktopPresentation::present(const platform::DocumentPicker& picker) {
  FileChoice choice;
  choice.title = "Import presets";
  choice.verb = "IMPORT";
  choice.start = folder_;
  choice.wildcard = wildcardFor(picker.types);
  choose(choice, [delegate = picker.delegate,
                  all = picker.allowsMultipleSelection](const std::vector<juce::File>& files) {
    // A pick counts for its first file alone, so each file is a pick of its own.
    for (const juce::File& file : files) {
      if (delegate) delegate->documentPickerDidPick({pathOf(file)});
      if (!all) break;
    }
  });
}

void DesktopPresentation::present(const platform::ActivitySheet& sheet) {
  if (sheet.paths.size() == 1 && !juce::File(toText(sheet.paths.front())).isDirectory()) {
    saveAs(sheet.paths.front());
    return;
  }
  if (sheet.paths.empty()) return;
  FileChoice choice;
  choice.kind = FileChoice::Kind::folder;
  choice.title = "Export to a folder";
  choice.verb = "EXPORT";
  choice.start = folder_;
  choose(choice, [this, paths = sheet.paths](const std::vector<juce::File>& files) {
    copy(FileExport::copiesInto(pathOf(files.front()), paths));
  });
}

void DesktopPresentation::present(const platform::Alert& alert) {
  alerts_.show({alert.title, alert.message, {alert.button}, nullptr});
}

void DesktopPresentation::saveAs(const std::string& path) {
  const juce::String extension = "." + toText(platform::pathExtension(path));
  FileChoice choice;
  choice.kind = FileChoice::Kind::fileToSave;
  choice.title = "Export preset";
  choice.verb = "SAVE";
  choice.start = folder_.getChildFile(toText(platform::lastPathComponent(path)));
  choice.wildcard = "*" + extension;
  choose(choice, [this, path, extension](const std::vector<juce::File>& files) {
    juce::File target = files.front();
    // Without its extension nobody would find it again.
    if (!target.hasFileExtension(extension))
      target = target.getSiblingFile(target.getFileName() + extension);
    copy({{path, pathOf(target)}});
  });
}

void DesktopPresentation::copy(std::vector<FileExport::Copy> copies) {
  const std::size_t replaced = FileExport::replacedBy(copies);
  if (replaced == 0) {
    copyNow(copies);
    return;
  }
  const std::string question =
      copies.size() == 1
          ? '"' + platform::lastPathComponent(copies.front().to) + "\" exists there already."
          : std::to_string(replaced) + " of the files exist there already.";
  alerts_.show({"Replace?",
                question + " Replacing it cannot be undone.",
                {"CANCEL", "REPLACE"},
                [this, copies = std::move(copies)](std::size_t button) {
                  if (button == 1) copyNow(copies);
                }});
}

void DesktopPresentation::copyNow(const std::vector<FileExport::Copy>& copies) {
  if (auto problem = FileExport::run(copies))
    alerts_.show({"Not exported", std::move(*problem), {"OK"}, nullptr});
}

void DesktopPresentation::choose(const FileChoice& choice, Answer answer) {
  closeFilePanel();
  systemChooser_.reset();
  if (usesSystemChoosers && juce::FileChooser::isPlatformDialogAvailable()) {
    systemChooser_ =
        std::make_unique<juce::FileChooser>(choice.title, choice.start, choice.wildcard);
    systemChooser_->launchAsync(
        choice.flags(), [this, answer = std::move(answer)](const juce::FileChooser& chooser) {
          chosen(chooser.getResults(), answer);
        });
    return;
  }
  root_.addSubview(behindPanel_);
  behindPanel_.setHidden(false);
  filePanel_ = std::make_unique<FilePanel>(
      component_, choice, [this, answer = std::move(answer)](const juce::Array<juce::File>& files) {
        closeFilePanel();
        chosen(files, answer);
      });
}

void DesktopPresentation::chosen(const juce::Array<juce::File>& files, const Answer& answer) {
  if (files.isEmpty()) return;
  const juce::File& first = files.getReference(0);
  folder_ = first.isDirectory() ? first : first.getParentDirectory();
  answer(std::vector<juce::File>(files.begin(), files.end()));
}

void DesktopPresentation::closeFilePanel() {
  if (!filePanel_) return;
  // The keyboard goes back to the component.
  filePanel_->setVisible(false);
  closedPanel_ = std::move(filePanel_);
  behindPanel_.setHidden(true);
  triggerAsyncUpdate();
}

}  // namespace juce_backend
