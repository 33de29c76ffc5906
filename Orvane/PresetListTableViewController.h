#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "Orvane/PresetLibrary.h"
#include "toolkit/TableViewController.h"

namespace orvane {

/// Told which preset the list has selected. Held weakly. User-interface thread only.
class PresetListTableViewControllerDelegate {
 public:
  virtual ~PresetListTableViewControllerDelegate() = default;

  virtual void presetListDidSelect(const std::shared_ptr<Preset>& preset) = 0;
  /// The user has chosen the selected preset, which was heard before.
  virtual void presetListDidKeepSelected() = 0;
  /// The arrow keys rest on a preset.
  virtual void presetListDidRestOn(const std::shared_ptr<Preset>& preset) = 0;
};

/// The presets of a library as the list in the browser: what passes the bank, the categories and the
/// search, with the selected one lit. User-interface thread only.
class PresetListTableViewController : public toolkit::TableViewController,
                                      public PresetLibraryObserver {
 public:
  using PresetPtr = PresetLibrary::PresetPtr;
  using Presets = PresetLibrary::Presets;

  /// `library` outlives it.
  explicit PresetListTableViewController(PresetLibrary& library);

  platform::Weak<PresetListTableViewControllerDelegate> delegate;

  /// User and factory presets below headers; else one list, with stars.
  bool useHeaders = true;

  PresetLibrary& library() { return library_; }

  // What the library has of it

  const std::string& searchText() const { return library_.filter().searchText; }
  const std::string& currentBankFilter() const { return library_.filter().bank; }
  const std::vector<std::string>& currentCategoriesFilter() const {
    return library_.filter().categories;
  }
  void setCurrentBankFilter(const std::string& bank);
  void setCurrentCategoriesFilter(const std::vector<std::string>& categories);
  void searchFor(const std::string& text);
  PresetManager* presetManager() const { return library_.store(); }
  const std::string& defaultBank() const { return library_.defaultBank(); }
  const std::optional<std::vector<platform::KestroAUPreset>>& factoryPresets() const {
    return library_.factoryPresets();
  }
  const Presets& presetFileList() const { return library_.all(); }
  const Presets& presetFileListFiltered() const { return library_.shown(); }
  const Presets& presetListForNextAndPrevious() const { return library_.walk(); }
  const PresetPtr& selectedPreset() const { return library_.selected(); }
  /// Tells nobody but those who watch the library.
  void setSelectedPreset(const PresetPtr& preset) { library_.select(preset); }

  void reload();
  /// To the neighbour of the selected preset in the walk, around its ends, and on past those that
  /// the delegate refuses by selecting another; tells the delegate.
  void selectNext(bool backward);
  /// Brings the selected preset into sight, or the top where it is not shown.
  void moveToSelected();

  /// The one that the arrow keys have reached, else the selected one; null when neither is shown.
  PresetPtr presetInFocus();

  void presetLibraryDidChange(Change change) override;
  void viewDidLoad() override;
  int numberOfSections(toolkit::TableView& table) override;
  int numberOfRowsInSection(toolkit::TableView& table, int section) override;
  toolkit::TableViewCell& cellForRowAt(toolkit::TableView& table, toolkit::IndexPath row) override;
  std::string titleForHeaderInSection(toolkit::TableView& table, int section) override;
  std::unique_ptr<toolkit::View> viewForHeaderInSection(toolkit::TableView& table,
                                                        int section) override;
  double heightForHeaderInSection(toolkit::TableView& table, int section) override;
  double heightForRowsInSection(toolkit::TableView& table, int section) override;
  void didSelectRowAt(toolkit::TableView& table, toolkit::IndexPath row) override;
  bool didMarkRowAt(toolkit::TableView& table, toolkit::IndexPath row, Mark how) override;
  bool isRowMarked(toolkit::TableView& table, toolkit::IndexPath row) override;
  void didFocusRowAt(toolkit::TableView& table, toolkit::IndexPath row) override;

 private:
  void showPresets();
  /// Stars, marks and the sign of a changed preset in the rows as they are.
  void showStates();
  const Presets& presetsIn(int section) const;
  Presets presetsInRows() const;
  const PresetPtr& presetAt(toolkit::IndexPath row) const;
  std::optional<toolkit::IndexPath> rowOf(const Preset& preset) const;

  PresetLibrary& library_;
  /// Until the arrow keys rest.
  foundation::Timer rest_;
  /// Those that are shown, below their headers.
  Presets sections_[2];
};

}  // namespace orvane
