#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "Orvane/Preset.h"
#include "platform/KestroAUPreset.h"
#include "toolkit/TableViewController.h"

namespace orvane {

class PresetManager;

/// Told which preset the list has selected. Held weakly. User-interface thread only.
class PresetListTableViewControllerDelegate {
 public:
  virtual ~PresetListTableViewControllerDelegate() = default;

  virtual void presetListDidSelect(const std::shared_ptr<Preset>& preset) = 0;
  /// Other presets are shown now.
  virtual void presetListDidChange() {}
};

/// The list of presets in the browser, and the order that the menu bar's arrows walk through. It
/// shows what passes the bank, the categories and the search; the walk goes through all. Two
/// presets are the same for it when they are equal. User-interface thread only.
class PresetListTableViewController : public toolkit::TableViewController {
 public:
  using PresetPtr = std::shared_ptr<Preset>;

  platform::Weak<PresetListTableViewControllerDelegate> delegate;

  // What it shows; reload follows a change of the first two, filterList one of the others.

  PresetManager* presetManager = nullptr;
  std::optional<std::vector<platform::KestroAUPreset>> factoryPresets;
  std::string searchText;
  /// Empty for none: "ALL", "USER", "FAVOURITES" or the name of a bank.
  std::string currentBankFilter;
  /// Presets that have any of them; none for all.
  std::vector<std::string> currentCategoriesFilter;
  /// The bank of factory presets that name none.
  std::string defaultBank = "BANK A";
  /// User and factory presets below headers; else one list, with stars.
  bool useHeaders = true;

  const PresetPtr& selectedPreset() const { return selectedPreset_; }
  /// Tells nobody; moveToSelected shows it.
  void setSelectedPreset(PresetPtr preset) { selectedPreset_ = std::move(preset); }

  const std::vector<PresetPtr>& presetFileList() const { return presetFileList_; }
  const std::vector<PresetPtr>& presetFileListFiltered() const { return presetFileListFiltered_; }
  const std::vector<PresetPtr>& presetListForNextAndPrevious() const {
    return presetListForNextAndPrevious_;
  }

  /// Makes all lists anew from the store and the factory presets.
  void reload();
  void filterList();
  void searchFor(const std::string& text);
  /// To the neighbour of the selected preset in the walk, around its ends; tells the delegate.
  void selectNext(bool backward);
  void moveToSelected();
  /// Shows a preset that it has as a favourite.
  void markFavourite(const std::string& uniqueName);
  /// Whether a preset, whose categories are in lower case, has this one in any case.
  static bool hasCategory(const Preset& preset, const std::string& category);

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

 private:
  bool passesBank(const Preset& preset, const std::string& lowerCaseBank) const;
  const PresetPtr& presetAt(toolkit::IndexPath row) const;
  std::optional<toolkit::IndexPath> rowOf(const Preset& preset) const;

  std::vector<PresetPtr> presetFileList_;
  /// The names of presetFileList in lower case, which each key that is typed asks for.
  std::vector<std::string> lowerCaseNames_;
  std::vector<PresetPtr> presetFileListFiltered_;
  std::vector<PresetPtr> presetListForNextAndPrevious_;
  /// presetFileListFiltered by section.
  std::vector<PresetPtr> sections_[2];
  PresetPtr selectedPreset_;
};

}  // namespace orvane
