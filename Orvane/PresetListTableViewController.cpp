#include "Orvane/PresetListTableViewController.h"

#include <algorithm>
#include <string_view>
#include <unordered_set>
#include <utility>

#include "KestroUI/Theme.h"
#include "Orvane/FavPresetsStore.h"
#include "Orvane/Preset.h"
#include "Orvane/PresetCell.h"
#include "Orvane/PresetManager.h"
#include "Orvane/PresetTableStyle.h"
#include "foundation/UnicodeText.h"
#include "platform/Fatal.h"
#include "toolkit/Label.h"

namespace orvane {

using toolkit::IndexPath;
using toolkit::TableView;
using Presets = std::vector<std::shared_ptr<Preset>>;
namespace Theme = kestroui::Theme;

namespace {

/// By name in upper case, code point by code point; presets of equal names keep their order.
void sortByName(Presets& presets) {
  std::vector<std::pair<std::string, std::shared_ptr<Preset>>> named;
  named.reserve(presets.size());
  for (auto& preset : presets)
    named.emplace_back(foundation::uppercased(preset->name), std::move(preset));
  // The order of UTF-8 bytes is that of code points.
  std::stable_sort(named.begin(), named.end(),
                   [](const auto& a, const auto& b) { return a.first < b.first; });
  for (std::size_t i = 0; i < presets.size(); ++i) presets[i] = std::move(named[i].second);
}

/// Above the presets of one kind.
class SectionHeader : public toolkit::View {
 public:
  explicit SectionHeader(const std::string& title) {
    setBackgroundColor(Theme::menu);
    label_.setText(title);
    label_.setFont(Theme::cellFont);
    label_.setTextColor(Theme::white);
    addSubview(label_);
  }
  void draw(const platform::Rect& rect) override {
    View::draw(rect);
    constexpr double left = 30;
    label_.setFrame({left, 0, std::max(0.0, bounds().width - left), bounds().height});
  }

 private:
  toolkit::Label label_;
};

}  // namespace

void PresetListTableViewController::viewDidLoad() {
  TableViewController::viewDidLoad();
  PresetTableStyle::apply(tableView());
}

// Lists

void PresetListTableViewController::reload() {
  Presets users;
  if (presetManager) {
    presetManager->createPresetDirectories();
    for (auto& preset : presetManager->getUserPresets()) users.push_back(std::move(preset));
  }
  Presets factory;
  if (factoryPresets)
    for (const platform::KestroAUPreset& record : *factoryPresets)
      factory.push_back(std::make_shared<FactoryPreset>(record));

  presetFileList_ = factory;
  presetListForNextAndPrevious_ = users;
  sortByName(presetListForNextAndPrevious_);
  sortByName(factory);
  presetListForNextAndPrevious_.insert(presetListForNextAndPrevious_.end(), factory.begin(),
                                       factory.end());
  presetFileList_.insert(presetFileList_.end(), users.begin(), users.end());
  sortByName(presetFileList_);
  const auto standard = std::find_if(
      presetFileList_.begin(), presetFileList_.end(),
      [](const auto& preset) { return foundation::uppercased(preset->name) == "DEFAULT"; });
  if (standard != presetFileList_.end())
    std::rotate(presetFileList_.begin(), standard, std::next(standard));

  const std::unordered_set<std::string_view> favourites(FavPresetsStore::favouritePresets.begin(),
                                                        FavPresetsStore::favouritePresets.end());
  lowerCaseNames_.clear();
  for (const auto& preset : presetFileList_) {
    if (favourites.contains(preset->uniqueName())) preset->isFavourite = true;
    lowerCaseNames_.push_back(foundation::lowercased(preset->name));
  }
  filterList();
}

bool PresetListTableViewController::passesBank(const Preset& preset,
                                               const std::string& lowerCaseBank) const {
  const std::string& bank = currentBankFilter;
  if (bank.empty() || bank == "ALL") return true;
  if (bank == "USER") return preset.isUserPreset;
  if (bank == "FAVOURITES") return preset.isFavourite;
  if (preset.isUserPreset) return false;
  return foundation::lowercased(preset.bankName) == lowerCaseBank ||
         (preset.bankName.empty() && bank == defaultBank);
}

void PresetListTableViewController::filterList() {
  const std::string bank = foundation::lowercased(currentBankFilter);
  const std::string wanted = foundation::lowercased(searchText);
  const auto& categories = currentCategoriesFilter;
  const auto hasAnyCategory = [&](const Preset& preset) {
    return categories.empty() ||
           std::any_of(categories.begin(), categories.end(),
                       [&](const std::string& category) { return hasCategory(preset, category); });
  };

  presetFileListFiltered_.clear();
  for (Presets& section : sections_) section.clear();
  for (std::size_t i = 0; i < presetFileList_.size(); ++i) {
    const auto& preset = presetFileList_[i];
    if (!wanted.empty() && lowerCaseNames_[i].find(wanted) == std::string::npos) continue;
    if (!passesBank(*preset, bank) || !hasAnyCategory(*preset)) continue;
    presetFileListFiltered_.push_back(preset);
    if (useHeaders) sections_[preset->isUserPreset ? 0 : 1].push_back(preset);
  }
  tableView().reloadData();
  moveToSelected();
  if (auto* owner = delegate.get()) owner->presetListDidChange();
}

void PresetListTableViewController::markFavourite(const std::string& uniqueName) {
  const auto found =
      std::find_if(presetFileList_.begin(), presetFileList_.end(),
                   [&](const auto& each) { return each->uniqueName() == uniqueName; });
  if (found == presetFileList_.end() || (*found)->isFavourite) return;
  (*found)->isFavourite = true;
  filterList();
}

bool PresetListTableViewController::hasCategory(const Preset& preset, const std::string& category) {
  return std::find(preset.categories.begin(), preset.categories.end(),
                   foundation::lowercased(category)) != preset.categories.end();
}

void PresetListTableViewController::searchFor(const std::string& text) {
  searchText = text;
  filterList();
}

// Selection

void PresetListTableViewController::selectNext(bool backward) {
  if (!selectedPreset_) return;
  const Presets& walk = presetListForNextAndPrevious_;
  const auto found = std::find_if(
      walk.begin(), walk.end(), [this](const auto& preset) { return *preset == *selectedPreset_; });
  if (found == walk.end()) return;
  if (const auto row = rowOf(*selectedPreset_)) {
    tableView().deselectRow(*row);
    didDeselectRowAt(tableView(), *row);
  }
  const std::size_t from = static_cast<std::size_t>(found - walk.begin());
  selectedPreset_ = walk[(from + (backward ? walk.size() - 1 : 1)) % walk.size()];
  const platform::Weak<PresetListTableViewController> self = this;
  if (auto* owner = delegate.get()) owner->presetListDidSelect(selectedPreset_);
  if (self) moveToSelected();
}

void PresetListTableViewController::moveToSelected() {
  const auto row = selectedPreset_ ? rowOf(*selectedPreset_) : std::nullopt;
  if (!row) {
    tableView().selectRow(std::nullopt);
    tableView().scrollRectToVisible({0, 0, 1, 1});
    return;
  }
  tableView().selectRow(*row, TableView::ScrollPosition::middle);
  didSelectRowAt(tableView(), *row);
}

const PresetListTableViewController::PresetPtr& PresetListTableViewController::presetAt(
    IndexPath row) const {
  const Presets& presets =
      useHeaders ? sections_[row.section == 0 ? 0 : 1] : presetFileListFiltered_;
  const auto index = static_cast<std::size_t>(row.row);
  if (row.row < 0 || index >= presets.size()) platform::fatal("The preset list has no such row");
  return presets[index];
}

std::optional<IndexPath> PresetListTableViewController::rowOf(const Preset& preset) const {
  const int section = useHeaders && !preset.isUserPreset ? 1 : 0;
  const Presets& presets = useHeaders ? sections_[section] : presetFileListFiltered_;
  const auto found = std::find_if(presets.begin(), presets.end(),
                                  [&](const auto& other) { return *other == preset; });
  if (found == presets.end()) return std::nullopt;
  return IndexPath{section, static_cast<int>(found - presets.begin())};
}

// The table's source

int PresetListTableViewController::numberOfSections(TableView&) { return useHeaders ? 2 : 1; }

int PresetListTableViewController::numberOfRowsInSection(TableView&, int section) {
  const Presets& presets = useHeaders ? sections_[section == 0 ? 0 : 1] : presetFileListFiltered_;
  return static_cast<int>(presets.size());
}

toolkit::TableViewCell& PresetListTableViewController::cellForRowAt(TableView& table,
                                                                    IndexPath row) {
  auto& cell = table.dequeueReusableCell<PresetCell>();
  cell.setShowStarButton(!useHeaders);
  cell.setPreset(presetAt(row));
  return cell;
}

std::string PresetListTableViewController::titleForHeaderInSection(TableView&, int section) {
  if (!useHeaders) return {};
  return section == 0 ? "USER" : "FACTORY";
}

std::unique_ptr<toolkit::View> PresetListTableViewController::viewForHeaderInSection(
    TableView& table, int section) {
  if (!useHeaders) return TableViewController::viewForHeaderInSection(table, section);
  return std::make_unique<SectionHeader>(titleForHeaderInSection(table, section));
}

double PresetListTableViewController::heightForHeaderInSection(TableView& table, int) {
  return useHeaders ? PresetTableStyle::headerHeight(table) : 0;
}

double PresetListTableViewController::heightForRowsInSection(TableView& table, int) {
  return PresetTableStyle::rowHeight(table);
}

void PresetListTableViewController::didSelectRowAt(TableView& table, IndexPath row) {
  TableViewController::didSelectRowAt(table, row);
  // Whoever is told may make the list anew.
  const PresetPtr preset = presetAt(row);
  if (selectedPreset_ && *selectedPreset_ == *preset) return;
  selectedPreset_ = preset;
  if (auto* owner = delegate.get()) owner->presetListDidSelect(preset);
}

}  // namespace orvane
