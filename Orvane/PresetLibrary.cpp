#include "Orvane/PresetLibrary.h"

#include <algorithm>
#include <iterator>
#include <string_view>
#include <utility>

#include "Orvane/FavPresetsStore.h"
#include "Orvane/PresetManager.h"
#include "foundation/DispatchQueue.h"
#include "foundation/UnicodeText.h"

namespace orvane {

using foundation::lowercased;
using Change = PresetLibraryObserver::Change;
using Presets = PresetLibrary::Presets;
using PresetPtr = PresetLibrary::PresetPtr;

namespace {

/// The libraries of all editors of the process.
std::vector<PresetLibrary*>& libraries() {
  static std::vector<PresetLibrary*> all;
  return all;
}

bool isSame(const Preset& a, const Preset& b) {
  return a.isUserPreset == b.isUserPreset && a.id == b.id && a.uniqueName() == b.uniqueName();
}

PresetPtr firstThat(const Presets& presets, const auto& isWanted) {
  const auto found = std::find_if(presets.begin(), presets.end(), isWanted);
  return found == presets.end() ? nullptr : *found;
}

std::optional<std::size_t> placeOf(const Preset* preset, const Presets& presets) {
  const auto found = std::find_if(presets.begin(), presets.end(),
                                  [preset](const auto& each) { return each.get() == preset; });
  if (found == presets.end()) return std::nullopt;
  return static_cast<std::size_t>(found - presets.begin());
}

}  // namespace

PresetLibrary::PresetLibrary() { libraries().push_back(this); }

PresetLibrary::~PresetLibrary() { std::erase(libraries(), this); }

void PresetLibrary::addObserver(platform::Weak<PresetLibraryObserver> observer) {
  std::erase_if(observers_, [](const auto& each) { return !each; });
  observers_.push_back(std::move(observer));
}

void PresetLibrary::tell(Change change) {
  const platform::Weak<PresetLibrary> self = this;
  // Whoever is told may add observers.
  const auto observers = observers_;
  for (const auto& observer : observers) {
    if (auto* told = observer.get()) told->presetLibraryDidChange(change);
    if (!self) return;
  }
}

// Sources

PresetManager* PresetLibrary::store() const { return store_.get(); }

void PresetLibrary::setStore(PresetManager* store) {
  store_ = store;
  loaded_ = false;
}

void PresetLibrary::setFactoryPresets(
    std::optional<std::vector<platform::KestroAUPreset>> records) {
  factoryPresets_ = std::move(records);
  factoryChanged_ = true;
}

void PresetLibrary::setDefaultBank(std::string bank) {
  defaultBank_ = std::move(bank);
  applyFilter();
}

void PresetLibrary::reload() {
  Presets users;
  if (auto* store = store_.get()) {
    store->createPresetDirectories();
    for (auto& preset : store->getUserPresets()) users.push_back(std::move(preset));
    loaded_ = true;
  }
  const bool usersChanged = users != users_;
  if (usersChanged || factoryChanged_) {
    takeDefaultBack();
    if (usersChanged) update(users_, users);
    users_ = std::move(users);
    if (std::exchange(factoryChanged_, false)) {
      Presets factory;
      if (factoryPresets_)
        for (const platform::KestroAUPreset& record : *factoryPresets_)
          factory.push_back(std::make_shared<FactoryPreset>(record));
      update(factory_, factory);
      factory_ = std::move(factory);
    }
    refreshFavourites();
    rebuildLists();
    refreshSelection();
    applyFilter();
  } else if (refreshFavourites()) {
    applyFilter();
  }
}

void PresetLibrary::announce() {
  const std::string group = store_ ? store_->groupBundleId : std::string();
  for (PresetLibrary* other : libraries()) {
    if (other == this || !other->store_ || other->store_->groupBundleId != group) continue;
    foundation::DispatchQueue::mainAsync([other = platform::Weak<PresetLibrary>(other)] {
      if (other) other->reload();
    });
  }
  reload();
}

// Order

PresetLibrary::Entry PresetLibrary::entryFor(PresetPtr preset) {
  const auto* user = dynamic_cast<const UserPreset*>(preset.get());
  Entry entry;
  entry.sortName = foundation::uppercased(preset->name);
  entry.lowerName = lowercased(preset->name);
  if (!user) entry.lowerBank = lowercased(preset->bankName);
  entry.uniqueName = preset->uniqueName();
  entry.kind = !user ? 0 : user->isICloud ? 2 : 1;
  entry.preset = std::move(preset);
  return entry;
}

bool PresetLibrary::comesBefore(const Entry& a, const Entry& b) {
  // The order of UTF-8 bytes is that of code points.
  const int order = a.sortName.compare(b.sortName);
  return order != 0 ? order < 0 : a.kind < b.kind;
}

void PresetLibrary::update(const Presets& before, const Presets& now) {
  const auto [old, fresh] = std::mismatch(before.begin(), before.end(), now.begin(), now.end());
  std::unordered_set<const Preset*> gone;
  for (auto each = old; each != before.end(); ++each) gone.insert(each->get());
  std::vector<Entry> added;
  for (auto each = fresh; each != now.end(); ++each)
    if (gone.erase(each->get()) == 0) added.push_back(entryFor(*each));
  if (!gone.empty())
    std::erase_if(entries_, [&](const Entry& entry) { return gone.contains(entry.preset.get()); });
  insert(std::move(added));
}

void PresetLibrary::insert(std::vector<Entry> added) {
  std::stable_sort(added.begin(), added.end(), comesBefore);
  const auto middle = static_cast<std::ptrdiff_t>(entries_.size());
  entries_.insert(entries_.end(), std::make_move_iterator(added.begin()),
                  std::make_move_iterator(added.end()));
  std::inplace_merge(entries_.begin(), entries_.begin() + middle, entries_.end(), comesBefore);
}

void PresetLibrary::takeDefaultBack() {
  if (entries_.empty()) return;
  const auto place = entries_.begin() + static_cast<std::ptrdiff_t>(defaultFrom_);
  std::rotate(entries_.begin(), std::next(entries_.begin()), std::next(place));
  defaultFrom_ = 0;
}

void PresetLibrary::rebuildLists() {
  walk_.clear();
  walk_.reserve(entries_.size());
  for (const bool isUser : {true, false})
    for (const Entry& entry : entries_)
      if ((entry.kind != 0) == isUser) walk_.push_back(entry.preset);

  const auto standard = std::lower_bound(
      entries_.begin(), entries_.end(), std::string_view("DEFAULT"),
      [](const Entry& entry, std::string_view name) { return entry.sortName < name; });
  if (standard != entries_.end() && standard->sortName == "DEFAULT") {
    defaultFrom_ = static_cast<std::size_t>(standard - entries_.begin());
    std::rotate(entries_.begin(), standard, std::next(standard));
  }
  all_.clear();
  all_.reserve(entries_.size());
  names_.clear();
  for (Entry& entry : entries_) {
    all_.push_back(entry.preset);
    names_ += entry.lowerName;
    // No name that is typed holds it, so that nothing is found across two names.
    names_ += '\0';
    entry.nameEnd = names_.size();
  }
}

bool PresetLibrary::refreshFavourites() {
  const std::unordered_set<std::string_view> favourites(FavPresetsStore::favouritePresets.begin(),
                                                        FavPresetsStore::favouritePresets.end());
  bool changed = false;
  for (const Entry& entry : entries_) {
    const bool isFavourite = favourites.contains(entry.uniqueName);
    changed = changed || entry.preset->isFavourite != isFavourite;
    entry.preset->isFavourite = isFavourite;
  }
  return changed;
}

void PresetLibrary::refreshSelection() {
  if (selected_) selected_ = find(*selected_);
  if (marked_.empty()) return;
  std::unordered_set<const Preset*> there;
  for (const PresetPtr& preset : all_)
    if (marked_.contains(preset.get())) there.insert(preset.get());
  marked_ = std::move(there);
}

// What is shown

bool PresetLibrary::isNarrowed() const {
  return !(filter_ == Filter{} || filter_ == Filter{.bank = "ALL"});
}

bool PresetLibrary::hasCategory(const Preset& preset, const std::string& category) {
  return std::find(preset.categories.begin(), preset.categories.end(), lowercased(category)) !=
         preset.categories.end();
}

bool PresetLibrary::passesBank(const Entry& entry, const std::string& lowerBank) const {
  const std::string& bank = filter_.bank;
  if (bank.empty() || bank == "ALL") return true;
  if (bank == "USER") return entry.preset->isUserPreset;
  if (bank == "FAVOURITES") return entry.preset->isFavourite;
  if (entry.preset->isUserPreset) return false;
  return entry.lowerBank == lowerBank || (entry.lowerBank.empty() && bank == defaultBank_);
}

void PresetLibrary::setFilter(Filter filter) {
  filter_ = std::move(filter);
  applyFilter();
}

void PresetLibrary::applyFilter() {
  const std::string bank = lowercased(filter_.bank);
  const std::string wanted = lowercased(filter_.searchText);
  std::vector<std::string> categories;
  for (const std::string& category : filter_.categories) categories.push_back(lowercased(category));
  shown_.clear();
  const auto consider = [&](const Entry& entry) {
    const auto& own = entry.preset->categories;
    if (passesBank(entry, bank) &&
        (categories.empty() || std::find_first_of(own.begin(), own.end(), categories.begin(),
                                                  categories.end()) != own.end()))
      shown_.push_back(entry.preset);
  };
  if (wanted.empty()) {
    for (const Entry& entry : entries_) consider(entry);
  } else {
    auto entry = entries_.begin();
    for (std::size_t at = names_.find(wanted); at != names_.npos; at = names_.find(wanted, at)) {
      while (entry->nameEnd <= at) ++entry;
      consider(*entry);
      at = entry->nameEnd;
    }
  }
  tell(Change::presets);
}

// Presets of the list

PresetPtr PresetLibrary::find(const Preset& like) const {
  if (const auto place = placeOf(&like, all_)) return all_[*place];
  return firstThat(all_, [&](const auto& each) { return isSame(*each, like); });
}

PresetPtr PresetLibrary::userPresetAt(const std::string& url) const {
  return firstThat(users_, [&](const auto& each) { return each->uniqueName() == url; });
}

PresetPtr PresetLibrary::userPresetNamed(const std::string& name) const {
  return firstThat(users_,
                   [&](const auto& each) { return foundation::isSameText(each->name, name); });
}

PresetPtr PresetLibrary::neighbourInWalk(const Preset& preset, bool backward) const {
  const auto place = placeOf(&preset, walk_);
  if (!place) return nullptr;
  return walk_[(*place + (backward ? walk_.size() - 1 : 1)) % walk_.size()];
}

PresetPtr PresetLibrary::neighbourShown(const Preset& preset, const Presets& leaving) const {
  const auto place = placeOf(&preset, shown_);
  if (!place) return nullptr;
  const auto from = shown_.begin() + static_cast<std::ptrdiff_t>(*place);
  for (const bool isUser : {preset.isUserPreset, !preset.isUserPreset}) {
    const auto stays = [&](const PresetPtr& each) {
      return each->isUserPreset == isUser && each.get() != &preset && !placeOf(each.get(), leaving);
    };
    const auto next = std::find_if(from, shown_.end(), stays);
    if (next != shown_.end()) return *next;
    const auto before = std::find_if(std::make_reverse_iterator(from), shown_.rend(), stays);
    if (before != shown_.rend()) return *before;
  }
  return nullptr;
}

// Selection

void PresetLibrary::select(const PresetPtr& preset) {
  PresetPtr entry = preset ? find(*preset) : nullptr;
  if (!entry) entry = preset;
  selectedBefore_ = std::exchange(selected_, std::move(entry));
  if (selected_ == selectedBefore_) return;
  tell(Change::selection);
}

void PresetLibrary::follow(const platform::PresetSource& audioUnit) {
  const std::string name = audioUnit.currentPresetName();
  const bool isFactory = audioUnit.currentPreset() >= 0;
  const auto isCurrent = [&](const PresetPtr& preset) {
    if (!preset || isFactory) return preset && preset->id == audioUnit.currentPreset();
    // A preset of the user or of a pack, whose numbers are none of the audio unit's.
    const bool isOfUnit = !preset->isUserPreset && preset->id.value_or(-1) >= 0;
    return !isOfUnit && preset->name == name;
  };
  if (!isCurrent(selected_)) select(firstThat(all_, isCurrent));
}

void PresetLibrary::setModified(bool modified) {
  if (std::exchange(modified_, modified) != modified) tell(Change::selection);
}

// Marks

Presets PresetLibrary::marked() const {
  Presets result;
  if (marked_.empty()) return result;
  for (const PresetPtr& preset : shown_)
    if (isMarked(*preset)) result.push_back(preset);
  return result;
}

void PresetLibrary::toggleMark(const PresetPtr& preset) {
  // The selected preset is the first of several.
  if (marked_.empty() && selected_ && preset != selected_ && placeOf(selected_.get(), shown_))
    marked_.insert(selected_.get());
  if (!marked_.insert(preset.get()).second) marked_.erase(preset.get());
  markAnchor_ = preset;
  tell(Change::marks);
}

void PresetLibrary::extendMarks(const PresetPtr& preset, const Presets& order) {
  const Preset* const anchor = markAnchor_ ? markAnchor_.get() : selected_.get();
  const auto to = placeOf(preset.get(), order);
  const auto from = placeOf(anchor, order);
  if (!to) return;
  const auto [first, last] = std::minmax({from.value_or(*to), *to});
  marked_.clear();
  for (std::size_t i = first; i <= last; ++i) marked_.insert(order[i].get());
  tell(Change::marks);
}

void PresetLibrary::markAllShown() {
  for (const PresetPtr& preset : shown_) marked_.insert(preset.get());
  tell(Change::marks);
}

void PresetLibrary::clearMarks(const PresetPtr& reached) {
  markAnchor_ = reached;
  if (marked_.empty()) return;
  marked_.clear();
  tell(Change::marks);
}

// Favourites

void PresetLibrary::setFavourite(Preset& preset, bool isFavourite) {
  FavPresetsStore::setFavourite(preset, isFavourite);
  const std::string uniqueName = preset.uniqueName();
  // Whoever is told may close an editor.
  std::vector<platform::Weak<PresetLibrary>> living(libraries().begin(), libraries().end());
  for (const auto& library : living) {
    if (!library) continue;
    for (const Entry& entry : library->entries_)
      if (entry.uniqueName == uniqueName) entry.preset->isFavourite = isFavourite;
    library->tell(Change::marks);
  }
}

}  // namespace orvane
