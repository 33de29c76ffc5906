#include "Orvane/PresetViewOverlay.h"

#include <algorithm>
#include <set>
#include <utility>

#include "KestroUI/Theme.h"
#include "Orvane/OverlayStyle.h"
#include "Orvane/PresetTableStyle.h"
#include "foundation/UnicodeText.h"

namespace orvane {

using platform::Key;
using platform::Rect;
using toolkit::ControlEvent;
namespace Theme = kestroui::Theme;

namespace {

constexpr double filterShare = 0.2;

}  // namespace

PresetViewOverlay::PresetViewOverlay(PresetLibrary& library) : library_(library), list_(library) {
  library_.addObserver(this);
  background_.setBackgroundColor(OverlayStyle::backdropColor());
  OverlayStyle::applyPanel(panel_.layer());
  presetTitle_.setText("PRESETS");
  presetTitle_.setTextColor(Theme::text);
  presetTitle_.setTextAlignment(platform::TextAlignment::centre);
  countLabel_.setTextColor(Theme::textDim);
  countLabel_.setTextAlignment(platform::TextAlignment::right);
  emptyLabel_.setTextColor(Theme::textDim);
  emptyLabel_.setTextAlignment(platform::TextAlignment::centre);
  replaceOverlay_.setText("A preset of this name exists. Do you want to replace it?");
}

void PresetViewOverlay::didMoveToSuperview() {
  if (!superview()) return;
  layer().addSublayer(background_);
  addSubview(panel_);
  addSubview(presetTitle_);
  addSubview(countLabel_);
  addSubview(clearButton_);
  clearButton_.addTarget<&PresetViewOverlay::clearFilters>(*this, ControlEvent::touchDown);
  addSubview(categorySelector_);
  addSubview(searchBar_);
  addSubview(list_.view());
  addSubview(emptyLabel_);
  kestroui::SimpleButton* const buttons[] = {&saveButton_,   &saveNewButton_, &editButton_,
                                             &deleteButton_, &importButton_,  &exportButton_};
  for (kestroui::SimpleButton* button : buttons) {
    addSubview(*button);
    button->addTarget<&PresetViewOverlay::handleTouchDown>(*this, ControlEvent::touchDown);
  }
  if (useFilterList) {
    addSubview(filters_.view());
    filters_.delegate = this;
  }
  list_.useHeaders = !useFilterList;
  list_.delegate = this;
  searchBar_.delegate = this;
  addSubview(saveNewPresetOverlay_);
  addSubview(confirmOverlay_);
  addSubview(replaceOverlay_);
  saveNewPresetOverlay_.delegate = this;
  confirmOverlay_.delegate = this;
  replaceOverlay_.delegate = this;
  saveNewPresetOverlay_.setHidden(true);
  confirmOverlay_.setHidden(true);
  replaceOverlay_.setHidden(true);
  for (auto* dialog : {&confirmOverlay_, &replaceOverlay_})
    dialog->setKeyboardFallback(list_.tableView());
  saveNewPresetOverlay_.setKeyboardFallback(list_.tableView());
  importButton_.setHidden(!allowImportAndExport);
  exportButton_.setHidden(!allowImportAndExport);
  updateButtons();
}

void PresetViewOverlay::setFactoryPresets(
    std::optional<std::vector<platform::KestroAUPreset>> presets) {
  std::vector<std::string> names = categories;
  std::vector<std::string> banks;
  std::set<std::string> found;
  if (presets)
    for (const platform::KestroAUPreset& preset : *presets) {
      for (const std::string& category : preset.categories)
        if (!category.empty()) found.insert(category);
      const std::string& bank = preset.bankName.empty() ? library_.defaultBank() : preset.bankName;
      if (std::find(banks.begin(), banks.end(), bank) == banks.end()) banks.push_back(bank);
    }
  if (names.empty()) names.assign(found.begin(), found.end());
  categorySelector_.setValues(names);
  categorySelector_.delegate = this;
  // The list is still narrowed down by those that were on.
  if (!library_.filter().categories.empty())
    categorySelector_.setSelectedValues(library_.filter().categories);
  saveNewPresetOverlay_.setCategories(std::move(names));

  std::vector<std::string> filters{"ALL", "USER", "FAVOURITES"};
  filters.insert(filters.end(), banks.begin(), banks.end());
  filters_.setFilterList(std::move(filters));
  if (useFilterList && !filters_.selectedFilter()) filters_.setSelectedFilter("ALL");
  filters_.reapplySelection();
  library_.setFactoryPresets(std::move(presets));
  setNeedsDisplay();
}

// What its parts report

void PresetViewOverlay::filterSelected(const std::optional<std::string>& filter) {
  list_.setCurrentBankFilter(filter.value_or(std::string()));
}

void PresetViewOverlay::searchTextChanged(const std::string& text) { list_.searchFor(text); }

void PresetViewOverlay::searchBarDidReturn() {
  toolkit::TableView& table = list_.tableView();
  table.becomeFirstResponder();
  const bool startsBelow = list_.useHeaders && list_.numberOfRowsInSection(table, 0) == 0;
  table.focusRow({startsBelow ? 1 : 0, 0});
}

void PresetViewOverlay::clearFilters() {
  searchBar_.textField().setText({});
  categorySelector_.setSelectedValues({});
  library_.setFilter({});
  if (!useFilterList) return;
  filters_.setSelectedFilter("ALL");
  filters_.reapplySelection();
}

void PresetViewOverlay::selectedValuesChanged() {
  list_.setCurrentCategoriesFilter(categorySelector_.selectedValues());
}

void PresetViewOverlay::presetListDidSelect(const std::shared_ptr<Preset>& preset) {
  updateButtons();
  if (auto* owner = delegate.get()) owner->presetSelected(preset);
}

void PresetViewOverlay::presetListDidKeepSelected() {
  if (auto* owner = delegate.get()) owner->endAudition(true);
}

void PresetViewOverlay::presetListDidRestOn(const std::shared_ptr<Preset>& preset) {
  if (auto* owner = delegate.get()) owner->presetAuditioned(preset);
}

void PresetViewOverlay::presetLibraryDidChange(Change) {
  const std::size_t shown = library_.shown().size();
  const std::size_t all = library_.all().size();
  const std::size_t marks = library_.markCount();
  countLabel_.setText(marks > 0      ? std::to_string(marks) + " marked"
                      : shown == all ? std::to_string(all)
                                     : std::to_string(shown) + " of " + std::to_string(all));
  clearButton_.setHidden(!library_.isNarrowed());
  emptyLabel_.setHidden(shown > 0);
  emptyLabel_.setText(all == 0 ? "No presets yet: SAVE NEW keeps the sound as it is now."
                               : "Nothing matches. CLEAR shows all presets.");
  updateButtons();
}

void PresetViewOverlay::updateButtons() {
  if (isHidden()) return;
  const auto chosen = chosenPresets();
  const bool isOne = chosen.size() == 1 && library_.markCount() < 2;
  // What is only marked has another sound than the one that would be saved over it.
  saveButton_.setEnabled(isOne && chosen.front() == library_.selected());
  editButton_.setEnabled(!chosen.empty());
  editButton_.setTitle(chosen.size() > 1 ? "CATEGORIES" : "RENAME");
  for (kestroui::SimpleButton* button : {&deleteButton_, &exportButton_})
    button->setEnabled(!chosen.empty());
}

std::vector<std::shared_ptr<UserPreset>> PresetViewOverlay::chosenPresets() const {
  PresetLibrary::Presets chosen = library_.marked();
  if (chosen.empty() && library_.selected()) chosen.push_back(library_.selected());
  std::vector<std::shared_ptr<UserPreset>> users;
  for (const auto& preset : chosen)
    if (auto user = std::dynamic_pointer_cast<UserPreset>(preset)) users.push_back(std::move(user));
  return users;
}

// Actions

void PresetViewOverlay::handleTouchDown(toolkit::Control& sender) {
  const platform::Weak<PresetViewOverlay> self = this;
  auto* owner = delegate.get();
  asked_ = chosenPresets();
  if (&sender == &saveButton_) {
    if (!asked_.empty() && owner) owner->savePreset(*asked_.front());
    if (self) setHidden(true);
  } else if (&sender == &saveNewButton_) {
    openNamePanel(false);
  } else if (&sender == &editButton_) {
    openNamePanel(true);
  } else if (&sender == &importButton_) {
    if (owner) owner->importPresets();
  } else if (&sender == &exportButton_) {
    // What is only marked leaves as it is stored.
    const bool isHeard = asked_.size() == 1 && asked_.front() == library_.selected();
    if (owner && (isHeard || asked_.empty()))
      owner->exportPreset();
    else if (owner)
      owner->exportPresets(asked_);
  } else if (&sender == &deleteButton_) {
    const std::string name = asked_.empty() ? std::string() : asked_.front()->name;
    confirmOverlay_.setSubject(
        asked_.size() < 2 ? name : name + " and " + std::to_string(asked_.size() - 1) + " more");
    confirmOverlay_.setHidden(false);
  }
}

void PresetViewOverlay::openNamePanel(bool isEdit) {
  isEdit_ = isEdit;
  if (!isEdit) asked_.clear();
  const std::size_t count = asked_.size();
  saveNewPresetOverlay_.setSubject(count > 1 ? std::to_string(count) + " presets" : std::string());
  saveNewPresetOverlay_.setHidden(false);
  if (count == 1) {
    saveNewPresetOverlay_.textField().setText(asked_.front()->name);
    saveNewPresetOverlay_.textField().selectAll();
  }
  // Stored in lower case; the selector has them as the plug-in writes them.
  shared_.clear();
  for (const std::string& name : saveNewPresetOverlay_.categories())
    if (count > 0 && std::all_of(asked_.begin(), asked_.end(), [&](const auto& preset) {
          return PresetLibrary::hasCategory(*preset, name);
        }))
      shared_.push_back(name);
  saveNewPresetOverlay_.categorySelector().setSelectedValues(shared_);
}

void PresetViewOverlay::saveCategories() {
  const auto& chosen = saveNewPresetOverlay_.categorySelector().selectedValues();
  const auto without = [](std::vector<std::string> names, const std::vector<std::string>& left) {
    std::erase_if(names, [&](const std::string& name) {
      return std::find(left.begin(), left.end(), name) != left.end();
    });
    return names;
  };
  const auto stored = [](std::vector<std::string> names) {
    for (std::string& name : names) name = foundation::lowercased(name);
    return names;
  };
  const auto added = stored(without(chosen, shared_)), removed = stored(without(shared_, chosen));
  std::vector<PresetCategories> changes;
  for (const auto& preset : asked_) {
    std::vector<std::string> names = without(preset->categories, removed);
    const auto missing = without(added, names);
    names.insert(names.end(), missing.begin(), missing.end());
    if (names != preset->categories) changes.push_back({preset, std::move(names)});
  }
  if (delegate && !changes.empty()) delegate->setPresetCategories(changes);
}

std::vector<std::string> PresetViewOverlay::chosenCategories(const Preset* preset) {
  std::vector<std::string> chosen = saveNewPresetOverlay_.categorySelector().selectedValues();
  if (!preset) return chosen;
  const auto& offered = saveNewPresetOverlay_.categories();
  for (const std::string& category : preset->categories)
    if (std::none_of(offered.begin(), offered.end(), [&](const std::string& each) {
          return foundation::lowercased(each) == category;
        }))
      chosen.push_back(category);
  return chosen;
}

std::string PresetViewOverlay::whyNoName(const std::string& name) const {
  // A file without a name would be hidden, and found by nobody.
  if (name.find_first_not_of(' ') == name.npos) return "A preset needs a name.";
  if (name.find('/') != name.npos) return "The name of a preset cannot hold \u201c/\u201d.";
  // With room for an extension in what file systems allow.
  constexpr std::size_t maximumBytes = 200;
  if (name.size() > maximumBytes) return "The name of a preset cannot be that long.";
  return {};
}

bool PresetViewOverlay::replacesAnother(const std::string& name) const {
  const auto& all = library_.all();
  return std::any_of(all.begin(), all.end(), [&](const auto& preset) {
    return preset->isUserPreset && (asked_.empty() || preset != asked_.front()) &&
           foundation::isSameText(preset->name, name);
  });
}

void PresetViewOverlay::textFieldOverlayDidConfirm(TextFieldOverlay&,
                                                   const std::optional<std::string>& text) {
  const platform::Weak<PresetViewOverlay> self = this;
  if (asked_.size() > 1) {
    saveCategories();
    if (self) saveNewPresetOverlay_.setHidden(true);
    return;
  }
  const std::string whyNot = text ? whyNoName(*text) : std::string();
  const bool keepsName = text && !asked_.empty() && asked_.front()->name == *text;
  if (!whyNot.empty()) {
    if (auto* owner = delegate.get()) owner->presetViewOverlayDidRefuse(whyNot);
    saveNewPresetOverlay_.textField().becomeFirstResponder();
    return;
  }
  if (text && !keepsName && replacesAnother(*text)) {
    nameToReplace_ = *text;
    replaceOverlay_.setSubject(*text);
    replaceOverlay_.setHidden(false);
    return;
  }
  if (text) saveAs(*text);
  if (!self) return;
  filters_.reapplySelection();
  saveNewPresetOverlay_.setHidden(true);
}

void PresetViewOverlay::saveAs(const std::string& name) {
  auto* owner = delegate.get();
  if (!owner) return;
  const platform::Weak<PresetViewOverlay> self = this;
  const std::shared_ptr<UserPreset> renamed = asked_.empty() ? nullptr : asked_.front();
  const std::vector<std::string> chosen = chosenCategories(renamed.get());
  const std::optional<std::string> url =
      renamed ? owner->renamePreset(*renamed, name, chosen) : owner->saveNewPreset(name, chosen);
  if (!self || !url) return;
  const auto saved = library_.userPresetAt(*url);
  library_.select(saved ? saved : std::make_shared<UserPreset>(*url, false));
  presetListDidSelect(library_.selected());
  if (!self || !library_.selected()) return;
  // Every preset that is saved gets a star, as in the family's programs.
  PresetLibrary::setFavourite(*library_.selected(), true);
}

void PresetViewOverlay::confirmOverlayDidAnswer(ConfirmOverlay& overlay, bool yes) {
  const platform::Weak<PresetViewOverlay> self = this;
  if (&overlay == &replaceOverlay_) {
    replaceOverlay_.setHidden(true);
    if (!yes) {
      saveNewPresetOverlay_.textField().becomeFirstResponder();
      return;
    }
    saveAs(nameToReplace_);
    if (!self) return;
    filters_.reapplySelection();
    saveNewPresetOverlay_.setHidden(true);
    return;
  }
  if (yes && delegate) delegate->deletePresets(asked_);
  if (self) confirmOverlay_.setHidden(true);
}

bool PresetViewOverlay::isDialogOpen() const {
  return !saveNewPresetOverlay_.isHidden() || !confirmOverlay_.isHidden() ||
         !replaceOverlay_.isHidden();
}

bool PresetViewOverlay::closeDialog() {
  for (View* dialog :
       std::initializer_list<View*>{&replaceOverlay_, &saveNewPresetOverlay_, &confirmOverlay_}) {
    if (dialog->isHidden()) continue;
    dialog->setHidden(true);
    list_.tableView().becomeFirstResponder();
    return true;
  }
  return false;
}

void PresetViewOverlay::setHidden(bool hidden) {
  const platform::Weak<PresetViewOverlay> self = this;
  if (hidden && !isHidden() && delegate) delegate->endAudition(true);
  if (!self) return;
  Modal::setHidden(hidden);
  if (!hidden) {
    updateButtons();
    // Others may have saved or removed presets meanwhile.
    list_.reload();
    list_.tableView().becomeFirstResponder();
    return;
  }
  replaceOverlay_.setHidden(true);
  saveNewPresetOverlay_.setHidden(true);
  confirmOverlay_.setHidden(true);
  if (auto* owner = delegate.get()) owner->presetViewOverlayDidHide();
}

bool PresetViewOverlay::keyPressed(const platform::KeyEvent& event) {
  toolkit::TextField& field = searchBar_.textField();
  if (event.key == Key::escape) {
    // What was begun last ends first.
    if (closeDialog()) return true;
    if (library_.markCount() > 0) {
      library_.clearMarks();
    } else if (field.isFirstResponder() && !field.text().empty()) {
      field.setText({});
      list_.searchFor({});
    } else if (!delegate || !delegate->endAudition(false)) {
      setHidden(true);
    }
    return true;
  }
  if (isDialogOpen()) return false;
  toolkit::TableView& table = list_.tableView();
  if (event.modifiers == platform::Modifiers::control && event.key == Key::character) {
    if (event.text == "z" || event.text == "Z")
      return !field.isFirstResponder() && delegate && delegate->undoPresetChange();
    // From the banks, whose rows are not marked.
    if (event.text == "a" || event.text == "A") return list_.tableView().keyPressed(event);
    if (event.text != "d" && event.text != "D") return false;
    starPresets();
    return true;
  }
  const bool isShifted = event.modifiers == platform::Modifiers::shift;
  if (event.modifiers != platform::Modifiers::none && !isShifted) return false;
  for (const Key key : {Key::up, Key::down, Key::pageUp, Key::pageDown, Key::home, Key::end})
    if (event.key == key) {
      table.becomeFirstResponder();
      return table.keyPressed(event);
    }
  // Typing begins a search, wherever the keyboard is.
  const bool isTyped = event.key == Key::character && !event.text.empty();
  if (field.isFirstResponder() || !(isTyped || event.key == Key::backspace)) return false;
  // Which selects what was searched for before.
  field.becomeFirstResponder();
  return field.keyPressed(event);
}

void PresetViewOverlay::starPresets() {
  PresetLibrary::Presets presets = library_.marked();
  if (const auto focused = list_.presetInFocus(); presets.empty() && focused)
    presets.push_back(focused);
  const bool allHave = std::all_of(presets.begin(), presets.end(),
                                   [](const auto& preset) { return preset->isFavourite; });
  for (const auto& preset : presets)
    if (preset->isFavourite == allHave) PresetLibrary::setFavourite(*preset, !allHave);
}

// Layout

void PresetViewOverlay::draw(const Rect&) {
  const double width = bounds().width, height = bounds().height;
  background_.setFrame(bounds());
  const Rect panel = OverlayStyle::panelIn(bounds());
  panel_.setFrame(panel);

  const double gap = std::max(3.0, height * 0.012);
  const double line = std::clamp(height * 0.062, 16.0, 80.0);
  const Rect inside = panel.inset(gap * 1.5, gap);
  double y = inside.y;
  const platform::Font titleFont =
      Theme::pageFont.withSize(std::min(line * 0.6, Theme::pageFont.pointSize * 2));
  presetTitle_.setFont(titleFont);
  presetTitle_.setFrame({inside.x + inside.width * 0.3, y, inside.width * 0.4, line});
  countLabel_.setFont(Theme::valueFont.withSize(std::clamp(line * 0.32, 9.0, 24.0)));
  countLabel_.setFrame({inside.maxX() - inside.width * 0.3, y, inside.width * 0.3, line});
  clearButton_.setFont(Theme::regularFont.withSize(std::clamp(line * 0.32, 9.0, 24.0)));
  clearButton_.setFrame(
      {inside.x, y + line * 0.1, std::max(52.0, inside.width * 0.12), line * 0.8});
  y += line + gap;

  const bool hasCategories = !categorySelector_.values().empty();
  categorySelector_.setHidden(!hasCategories);
  if (hasCategories) {
    const double selectorHeight = categorySelector_.fitRows({inside.width, line});
    categorySelector_.setFrame({inside.x, y, inside.width, selectorHeight});
    y += selectorHeight + gap;
  }

  const double filterWidth = useFilterList ? filterShare * width : 0;
  const double listX = inside.x + (useFilterList ? filterWidth + gap : 0);
  const Rect buttons{inside.x, inside.maxY() - line * 1.15, inside.width, line * 1.15};
  const double bottom = buttons.y - gap;
  searchBar_.setFrame({listX, y, inside.maxX() - listX, line});
  y += line + gap;
  const Rect list{listX, y, inside.maxX() - listX, std::max(0.0, bottom - y)};
  list_.view().setFrame(list);
  // Below the free space at its top, the banks stand in the lines of the presets.
  if (useFilterList)
    filters_.view().setFrame(
        {inside.x, list.y - PresetTableStyle::headerHeight(list.height), filterWidth, list.height});
  emptyLabel_.setFont(Theme::cellFont.withSize(std::clamp(line * 0.36, 9.0, 28.0)));
  emptyLabel_.setFrame({list.x + gap, list.midY() - line, list.width - 2 * gap, line * 2});
  layoutButtons(buttons);

  saveNewPresetOverlay_.setFrame(panel);
  confirmOverlay_.setFrame(panel);
  replaceOverlay_.setFrame(panel);
}

void PresetViewOverlay::layoutButtons(const Rect& row) {
  std::vector<kestroui::SimpleButton*> buttons{&saveButton_, &saveNewButton_, &editButton_,
                                               &deleteButton_};
  if (allowImportAndExport) {
    buttons.push_back(&importButton_);
    buttons.push_back(&exportButton_);
  }
  const double gap = 4;
  const auto count = static_cast<double>(buttons.size());
  const double width = std::max(0.0, (row.width - gap * (count - 1)) / count);
  double x = row.x;
  for (kestroui::SimpleButton* button : buttons) {
    button->setFont(Theme::regularFont.withSize(std::clamp(row.height * 0.3, 9.0, 24.0)));
    button->setFrame({x, row.y, width, row.height});
    x += width + gap;
  }
}

}  // namespace orvane
