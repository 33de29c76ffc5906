#include "Orvane/PresetListTableViewController.h"

#include <algorithm>
#include <utility>

#include "KestroUI/Theme.h"
#include "Orvane/PresetCell.h"
#include "Orvane/PresetTableStyle.h"
#include "platform/Fatal.h"
#include "toolkit/Label.h"

namespace orvane {

using toolkit::IndexPath;
using toolkit::TableView;
namespace Theme = kestroui::Theme;

namespace {

/// Seconds after which the arrow keys rest.
constexpr double restTime = 0.15;

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

PresetListTableViewController::PresetListTableViewController(PresetLibrary& library)
    : library_(library) {
  library_.addObserver(this);
}

void PresetListTableViewController::viewDidLoad() {
  TableViewController::viewDidLoad();
  PresetTableStyle::apply(tableView());
}

// The library

void PresetListTableViewController::reload() {
  const platform::Weak<PresetListTableViewController> self = this;
  library_.reload();
  if (self) moveToSelected();
}

void PresetListTableViewController::setCurrentBankFilter(const std::string& bank) {
  PresetLibrary::Filter filter = library_.filter();
  filter.bank = bank;
  library_.setFilter(std::move(filter));
}

void PresetListTableViewController::setCurrentCategoriesFilter(
    const std::vector<std::string>& categories) {
  PresetLibrary::Filter filter = library_.filter();
  filter.categories = categories;
  library_.setFilter(std::move(filter));
}

void PresetListTableViewController::searchFor(const std::string& text) {
  PresetLibrary::Filter filter = library_.filter();
  filter.searchText = text;
  library_.setFilter(std::move(filter));
}

void PresetListTableViewController::presetLibraryDidChange(Change change) {
  switch (change) {
    case Change::presets:
      showPresets();
      break;
    case Change::selection:
      moveToSelected();
      showStates();
      break;
    case Change::marks:
      showStates();
      break;
  }
}

void PresetListTableViewController::showStates() {
  tableView().forEachCell([this](IndexPath row, toolkit::TableViewCell& cell) {
    auto& shown = static_cast<PresetCell&>(cell);
    const bool isThere = static_cast<std::size_t>(row.row) < presetsIn(row.section).size();
    if (!isThere || shown.preset() != presetAt(row)) return;
    shown.setPreset(presetAt(row));
    shown.setModified(presetAt(row) == selectedPreset() && library_.isModified());
  });
}

PresetListTableViewController::PresetPtr PresetListTableViewController::presetInFocus() {
  const auto focused = tableView().focusedRow();
  if (focused) return presetAt(*focused);
  return selectedPreset() && rowOf(*selectedPreset()) ? selectedPreset() : nullptr;
}

void PresetListTableViewController::showPresets() {
  for (Presets& section : sections_) section.clear();
  if (useHeaders)
    for (const PresetPtr& preset : library_.shown())
      sections_[preset->isUserPreset ? 0 : 1].push_back(preset);
  tableView().reloadData();
  moveToSelected();
}

// Selection

void PresetListTableViewController::selectNext(bool backward) {
  const PresetPtr before = library_.selected();
  if (!before) return;
  if (const auto row = rowOf(*before)) {
    tableView().deselectRow(*row);
    didDeselectRowAt(tableView(), *row);
  }
  const platform::Weak<PresetListTableViewController> self = this;
  PresetPtr next = before;
  for (std::size_t tried = 0; tried < library_.walk().size(); ++tried) {
    next = library_.neighbourInWalk(*next, backward);
    // A list that was made anew meanwhile has it no more.
    if (!next) break;
    library_.select(next);
    if (auto* owner = delegate.get()) owner->presetListDidSelect(next);
    if (!self) return;
    if (!library_.selected() || library_.selected()->uniqueName() == next->uniqueName()) break;
  }
  moveToSelected();
}

void PresetListTableViewController::moveToSelected() {
  const auto row = selectedPreset() ? rowOf(*selectedPreset()) : std::nullopt;
  if (!row) {
    tableView().selectRow(std::nullopt);
    tableView().scrollRectToVisible({0, 0, 1, 1});
    return;
  }
  tableView().selectRow(*row, TableView::ScrollPosition::intoSight);
  didSelectRowAt(tableView(), *row);
}

const PresetListTableViewController::Presets& PresetListTableViewController::presetsIn(
    int section) const {
  return useHeaders ? sections_[section == 0 ? 0 : 1] : library_.shown();
}

PresetListTableViewController::Presets PresetListTableViewController::presetsInRows() const {
  Presets presets;
  for (int section = 0; section < (useHeaders ? 2 : 1); ++section)
    presets.insert(presets.end(), presetsIn(section).begin(), presetsIn(section).end());
  return presets;
}

const PresetListTableViewController::PresetPtr& PresetListTableViewController::presetAt(
    IndexPath row) const {
  const Presets& presets = presetsIn(row.section);
  const auto index = static_cast<std::size_t>(row.row);
  if (row.row < 0 || index >= presets.size()) platform::fatal("The preset list has no such row");
  return presets[index];
}

std::optional<IndexPath> PresetListTableViewController::rowOf(const Preset& preset) const {
  const int section = useHeaders && !preset.isUserPreset ? 1 : 0;
  const Presets& presets = presetsIn(section);
  const auto found = std::find_if(presets.begin(), presets.end(),
                                  [&](const auto& other) { return other.get() == &preset; });
  if (found == presets.end()) return std::nullopt;
  return IndexPath{section, static_cast<int>(found - presets.begin())};
}

// The table's source

int PresetListTableViewController::numberOfSections(TableView&) { return useHeaders ? 2 : 1; }

int PresetListTableViewController::numberOfRowsInSection(TableView&, int section) {
  return static_cast<int>(presetsIn(section).size());
}

toolkit::TableViewCell& PresetListTableViewController::cellForRowAt(TableView& table,
                                                                    IndexPath row) {
  auto& cell = table.dequeueReusableCell<PresetCell>();
  cell.setShowStarButton(!useHeaders);
  cell.setPreset(presetAt(row));
  cell.setModified(cell.preset() == selectedPreset() && library_.isModified());
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
  return useHeaders ? PresetTableStyle::headerHeight(table.frame().height) : 0;
}

double PresetListTableViewController::heightForRowsInSection(TableView& table, int) {
  return PresetTableStyle::rowHeight(table.frame().height);
}

void PresetListTableViewController::didSelectRowAt(TableView& table, IndexPath row) {
  TableViewController::didSelectRowAt(table, row);
  // Whoever is told may make the list anew.
  const PresetPtr preset = presetAt(row);
  rest_.invalidate();
  if (preset == selectedPreset()) return;
  const platform::Weak<PresetListTableViewController> self = this;
  library_.select(preset);
  if (!self) return;
  if (auto* owner = delegate.get()) owner->presetListDidSelect(preset);
}

bool PresetListTableViewController::didMarkRowAt(TableView&, IndexPath row, Mark how) {
  // Who marks several has stopped listening.
  rest_.invalidate();
  switch (how) {
    case Mark::none:
      library_.clearMarks();
      if (auto* owner = delegate.get(); owner && presetAt(row) == selectedPreset())
        owner->presetListDidKeepSelected();
      break;
    case Mark::toggle:
      library_.toggleMark(presetAt(row));
      break;
    case Mark::extend:
      library_.extendMarks(presetAt(row), presetsInRows());
      break;
    case Mark::all:
      library_.markAllShown();
      break;
  }
  return true;
}

bool PresetListTableViewController::isRowMarked(TableView&, IndexPath row) {
  const Presets& presets = presetsIn(row.section);
  const auto index = static_cast<std::size_t>(row.row);
  return index < presets.size() && library_.isMarked(*presets[index]);
}

void PresetListTableViewController::didFocusRowAt(TableView&, IndexPath row) {
  library_.clearMarks(presetAt(row));
  // A key that is held passes over a hundred presets.
  rest_ =
      foundation::Timer(restTime, foundation::Timer::Repeat::once, [this, preset = presetAt(row)] {
        auto* owner = delegate.get();
        if (owner && preset != selectedPreset()) owner->presetListDidRestOn(preset);
      });
}

}  // namespace orvane
