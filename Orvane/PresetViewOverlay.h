#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "KestroUI/KestroButtons.h"
#include "Orvane/ConfirmOverlay.h"
#include "Orvane/FiltersTableViewController.h"
#include "Orvane/MultiSelectable.h"
#include "Orvane/Preset.h"
#include "Orvane/PresetListTableViewController.h"
#include "Orvane/SaveNewPresetOverlay.h"
#include "Orvane/SearchBar.h"
#include "toolkit/Label.h"
#include "toolkit/ModalView.h"

namespace orvane {

/// Does what the user wants of presets; the browser itself touches no file. Held weakly.
/// User-interface thread only.
class PresetViewOverlayDelegate {
 public:
  virtual ~PresetViewOverlayDelegate() = default;

  /// The list has a new selection: load it.
  virtual void presetSelected(const std::shared_ptr<Preset>& preset) = 0;
  /// The path of the new preset, or none when it could not be saved.
  virtual std::optional<std::string> saveNewPreset(const std::string& name,
                                                   const std::vector<std::string>& categories) = 0;
  /// The same for a preset that is to be called so; its file of the old name goes.
  virtual std::optional<std::string> renamePreset(const UserPreset& preset, const std::string& name,
                                                  const std::vector<std::string>& categories) = 0;
  /// Replaces the preset by the state as it is now.
  virtual void savePreset(const UserPreset& preset) = 0;
  /// The presets get these categories; their sounds stay as they are stored.
  virtual void setPresetCategories(const std::vector<PresetCategories>& categories) = 0;
  virtual void deletePresets(const std::vector<std::shared_ptr<UserPreset>>& presets) = 0;
  /// Let this preset be heard, until endAudition keeps it or goes back to what was there before.
  virtual void presetAuditioned(const std::shared_ptr<Preset>& preset) = 0;
  /// False when nothing was auditioned.
  virtual bool endAudition(bool keeps) = 0;
  virtual void importPresets() = 0;
  /// The sound as it is now, as the selected preset.
  virtual void exportPreset() = 0;
  /// Presets as they are stored.
  virtual void exportPresets(const std::vector<std::shared_ptr<UserPreset>>& presets) = 0;
  /// False when nothing can be taken back.
  virtual bool undoPresetChange() = 0;
  virtual void presetViewOverlayDidHide() = 0;
  /// Why it does not do what the user wants, in a sentence.
  virtual void presetViewOverlayDidRefuse(const std::string& sentence) = 0;
};

/// The preset browser, over the whole editor: the list of presets with what narrows it down, and
/// buttons that save, name, delete, import and export. Typing searches, the arrow keys let presets be
/// heard, Return keeps, Escape goes back and then closes, Control and D give stars, Control and Z
/// takes back. Owned by the overlay host. User-interface thread only.
class PresetViewOverlay : public toolkit::Modal<toolkit::Control>,
                          public PresetListTableViewControllerDelegate,
                          public PresetLibraryObserver,
                          public FiltersTableViewControllerDelegate,
                          public SearchBarDelegate,
                          public TextFieldOverlayDelegate,
                          public ConfirmOverlayDelegate,
                          public MultiSelectableDelegate {
 public:
  /// `library` outlives it.
  explicit PresetViewOverlay(PresetLibrary& library);

  platform::Weak<PresetViewOverlayDelegate> delegate;

  // Before it gets a superview

  /// A column of banks beside the list, in place of headers in it.
  bool useFilterList = false;
  bool allowImportAndExport = false;
  /// The categories to choose from; those of the factory presets when it is empty.
  std::vector<std::string> categories;

  /// Fills filters and list with the audio unit's presets; the list shows them after its reload.
  void setFactoryPresets(std::optional<std::vector<platform::KestroAUPreset>> presets);

  PresetListTableViewController& presetListTableViewController() { return list_; }
  FiltersTableViewController& filtersTableViewController() { return filters_; }
  SearchBar& searchBar() { return searchBar_; }
  MultiSelectable& categorySelector() { return categorySelector_; }
  SaveNewPresetOverlay& saveNewPresetOverlay() { return saveNewPresetOverlay_; }
  ConfirmOverlay& confirmOverlay() { return confirmOverlay_; }
  /// Asks before a preset takes the name of another one.
  ConfirmOverlay& replaceOverlay() { return replaceOverlay_; }
  kestroui::SimpleButton& clearButton() { return clearButton_; }
  kestroui::SimpleButton& saveButton() { return saveButton_; }
  kestroui::SimpleButton& saveNewButton() { return saveNewButton_; }
  kestroui::SimpleButton& deleteButton() { return deleteButton_; }
  kestroui::SimpleButton& editButton() { return editButton_; }
  kestroui::SimpleButton& importButton() { return importButton_; }
  kestroui::SimpleButton& exportButton() { return exportButton_; }
  /// The name panel is open to give the selected preset another name.
  bool isEdit() const { return isEdit_; }
  /// It asks for a name or whether to do something.
  bool isDialogOpen() const;
  /// Closes the dialog that is open, if one is.
  bool closeDialog();

  /// Shows all presets: no search, no bank, no category.
  void clearFilters();

  /// The action of every button.
  void handleTouchDown(toolkit::Control& sender);

  void presetListDidSelect(const std::shared_ptr<Preset>& preset) override;
  void presetListDidKeepSelected() override;
  void presetListDidRestOn(const std::shared_ptr<Preset>& preset) override;
  void presetLibraryDidChange(Change change) override;
  void filterSelected(const std::optional<std::string>& filter) override;
  void searchTextChanged(const std::string& text) override;
  void searchBarDidReturn() override;
  void selectedValuesChanged() override;
  void textFieldOverlayDidConfirm(TextFieldOverlay& overlay,
                                  const std::optional<std::string>& text) override;
  void confirmOverlayDidAnswer(ConfirmOverlay& overlay, bool yes) override;

  void setHidden(bool hidden) override;
  bool keyPressed(const platform::KeyEvent& event) override;
  void didMoveToSuperview() override;
  void draw(const platform::Rect& rect) override;

 private:
  void updateButtons();
  /// Takes the stars of the marked presets, or of that in focus, when all have one; else gives them.
  void starPresets();
  /// The user's presets among those that are marked, or else the selected one if it is one.
  std::vector<std::shared_ptr<UserPreset>> chosenPresets() const;
  void openNamePanel(bool isEdit);
  /// Gives the presets that the dialog is about the categories that were switched on in it, and takes
  /// those that were switched off.
  void saveCategories();
  void saveAs(const std::string& name);
  /// The categories that the panel has chosen, and those of a preset that it does not offer.
  std::vector<std::string> chosenCategories(const Preset* preset);
  /// Why nothing can be saved under a name; empty when it can.
  std::string whyNoName(const std::string& name) const;
  bool replacesAnother(const std::string& name) const;
  void layoutButtons(const platform::Rect& row);

  toolkit::Layer background_;
  /// A touch on it, between its parts, is none beside the browser.
  toolkit::View panel_;
  toolkit::Label presetTitle_;
  /// How many of the presets the filters show.
  toolkit::Label countLabel_;
  /// In place of an empty list.
  toolkit::Label emptyLabel_;
  SearchBar searchBar_;
  PresetLibrary& library_;
  PresetListTableViewController list_;
  FiltersTableViewController filters_;
  MultiSelectable categorySelector_;
  kestroui::SimpleButton clearButton_{"CLEAR"};
  kestroui::SimpleButton saveButton_{"SAVE"};
  kestroui::SimpleButton saveNewButton_{"SAVE NEW"};
  kestroui::SimpleButton deleteButton_{"DELETE"};
  kestroui::SimpleButton editButton_{"RENAME"};
  kestroui::SimpleButton importButton_{"IMPORT"};
  kestroui::SimpleButton exportButton_{"EXPORT"};
  SaveNewPresetOverlay saveNewPresetOverlay_;
  ConfirmOverlay confirmOverlay_;
  ConfirmOverlay replaceOverlay_;
  /// What the open dialog is about, whatever is selected meanwhile.
  std::vector<std::shared_ptr<UserPreset>> asked_;
  /// The categories that all of them had.
  std::vector<std::string> shared_;
  std::string nameToReplace_;
  bool isEdit_ = false;
};

}  // namespace orvane
