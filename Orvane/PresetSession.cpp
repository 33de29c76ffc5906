#include "Orvane/PresetSession.h"

#include <algorithm>
#include <utility>

#include "Orvane/FavPresetsStore.h"
#include "Orvane/PresetManager.h"

namespace orvane {

using Presets = PresetLibrary::Presets;
using PresetPtr = PresetLibrary::PresetPtr;

namespace {

/// Further back nobody remembers what it was.
constexpr std::size_t maximumSteps = 20;

std::string inQuotes(const std::string& name) { return "\u201c" + name + "\u201d"; }

}  // namespace

void PresetSession::setAudioUnit(platform::AudioUnit* audioUnit) {
  if (audioUnit_ == audioUnit) return;
  audioUnit_ = audioUnit;
  // They belong to another sound.
  auditioned_.reset();
  steps_.clear();
}

// The sound

void PresetSession::wasLoaded() {
  auto* unit = audioUnit_.get();
  if (!unit) return;
  generation_ = unit->presetGeneration();
  baseline_ = PresetBaseline(*unit);
  const platform::Weak<PresetSession> self = this;
  library_.setModified(false);
  if (self && delegate) delegate->presetSessionDidLoad();
}

void PresetSession::follow(platform::AUParameterAddress address) {
  auto* unit = audioUnit_.get();
  if (!unit) return;
  if (unit->presetGeneration() != generation_) {
    // Somebody else has loaded it.
    auditioned_.reset();
    library_.follow(*unit);
    return wasLoaded();
  }
  if (const auto* parameter = unit->parameterTree().parameterWithAddress(address))
    baseline_.follow(*parameter);
  library_.setModified(baseline_.isModified());
}

bool PresetSession::load(const PresetPtr& preset) {
  const platform::Weak<PresetSession> self = this;
  if (delegate) delegate->presetSessionWillLoad();
  if (!self || !preset) return false;
  if (auto* store = library_.store()) return store->load(preset);
  // Factory presets are the audio unit's own; they need no store.
  auto* unit = audioUnit_.get();
  if (!unit || !preset->preset) return false;
  unit->setCurrentPreset(preset->preset->number);
  return true;
}

PresetSession::Snapshot PresetSession::snapshot(const PresetPtr& selected) const {
  const auto* unit = audioUnit_.get();
  return {unit ? unit->fullState() : platform::PropertyList(), selected, baseline_};
}

void PresetSession::restore(const Snapshot& snapshot) {
  auto* unit = audioUnit_.get();
  if (!unit || !unit->setFullState(snapshot.state)) return;
  generation_ = unit->presetGeneration();
  baseline_ = snapshot.baseline;
  const platform::Weak<PresetSession> self = this;
  library_.select(snapshot.selected ? library_.find(*snapshot.selected) : nullptr);
  if (self) library_.setModified(baseline_.isModified());
  if (self && delegate) delegate->presetSessionDidLoad();
}

// What the user does

void PresetSession::didSelect(const PresetPtr& preset) {
  // Whoever chooses before there is a sound finds it chosen then.
  if (!audioUnit_) return;
  const platform::Weak<PresetSession> self = this;
  const PresetPtr before = library_.selectedBefore();
  std::optional<Snapshot> left = std::exchange(auditioned_, std::nullopt);
  if (!left) left = snapshot(before);
  const bool isLoaded = load(preset);
  if (!self) return;
  if (!isLoaded) {
    // Perhaps it is there no more.
    library_.announce();
    if (self) library_.select(before ? library_.find(*before) : nullptr);
    return;
  }
  wasLoaded();
  if (self) rememberLeft(std::move(*left));
}

void PresetSession::audition(const PresetPtr& preset) {
  const platform::Weak<PresetSession> self = this;
  if (!auditioned_) auditioned_ = snapshot(library_.selected());
  if (!load(preset) || !self) return;
  library_.select(preset);
  if (self) wasLoaded();
}

void PresetSession::endAudition(Verdict verdict) {
  if (!auditioned_) return;
  Snapshot before = std::move(*std::exchange(auditioned_, std::nullopt));
  if (verdict == Verdict::goBack)
    restore(before);
  else
    rememberLeft(std::move(before));
}

void PresetSession::revert() {
  const platform::Weak<PresetSession> self = this;
  const PresetPtr preset = library_.selected();
  if (!preset) return;
  Snapshot changed = snapshot(preset);
  if (!load(preset) || !self) return;
  wasLoaded();
  if (self) rememberLeft(std::move(changed));
}

std::optional<std::string> PresetSession::saveNew(const std::string& name,
                                                  const std::vector<std::string>& categories) {
  const platform::Weak<PresetSession> self = this;
  if (delegate) delegate->presetSessionWillSave();
  auto* store = self ? library_.store() : nullptr;
  if (!store) return std::nullopt;
  auto url = store->saveNew(name, categories);
  if (url) rememberChange(inQuotes(name) + " was saved over.");
  if (self) library_.announce();
  return url;
}

bool PresetSession::save(const UserPreset& preset, const std::vector<std::string>& categories) {
  const platform::Weak<PresetSession> self = this;
  auto* store = library_.store();
  const bool isSaved = store && store->savePreset(preset.url, categories);
  if (isSaved) rememberChange(inQuotes(preset.name) + " was saved over.");
  if (self) library_.announce();
  if (self && isSaved) wasLoaded();
  return isSaved;
}

std::optional<std::string> PresetSession::rename(const UserPreset& preset, const std::string& name,
                                                 const std::vector<std::string>& categories) {
  const platform::Weak<PresetSession> self = this;
  if (delegate) delegate->presetSessionWillSave();
  auto* store = self ? library_.store() : nullptr;
  if (!store) return std::nullopt;
  auto url = store->renamePreset(preset, name, categories);
  if (url && *url != preset.url) {
    FavPresetsStore::remove(preset.uniqueName());
    rememberChange(inQuotes(preset.name) + " is called " + inQuotes(name) + " now.");
  }
  if (self) library_.announce();
  return url;
}

void PresetSession::setCategories(const std::vector<PresetCategories>& categories) {
  auto* store = library_.store();
  if (!store || categories.empty()) return;
  const platform::Weak<PresetSession> self = this;
  PresetUndo change;
  for (const auto& [preset, names] : categories)
    if (store->setCategories(*preset, names)) change.add(store->lastChange());
  library_.announce();
  if (!self || change.steps.empty()) return;
  const std::size_t count = change.steps.size();
  remember(count == 1 ? inQuotes(categories.front().preset->name) + " has other categories."
                      : std::to_string(count) + " presets have other categories.",
           [this, change = std::move(change)] { takeBack(change); });
}

void PresetSession::remove(const UserPresets& presets) {
  auto* store = library_.store();
  if (!store || presets.empty()) return;
  const platform::Weak<PresetSession> self = this;
  const Presets leaving(presets.begin(), presets.end());
  const PresetPtr selected = library_.selected();
  const bool leaves = std::find(leaving.begin(), leaving.end(), selected) != leaving.end();
  const PresetPtr next = leaves ? library_.neighbourShown(*selected, leaving) : nullptr;
  PresetUndo change;
  std::string gone;
  for (const auto& preset : presets) {
    if (!store->deleteUserPreset(*preset)) continue;
    gone = preset->name;
    change.add(store->lastChange());
  }
  library_.clearMarks();
  if (self) library_.announce();
  if (self && next && library_.selected() != selected) {
    library_.select(next);
    if (self && load(library_.selected()) && self) wasLoaded();
  }
  if (!self || change.steps.empty()) return;
  const std::size_t count = change.steps.size();
  remember(count == 1 ? inQuotes(gone) + " was deleted."
                      : std::to_string(count) + " presets were deleted.",
           [this, change = std::move(change)] { takeBack(change); });
}

// What can be taken back

void PresetSession::rememberLeft(Snapshot snapshot) {
  if (!snapshot.baseline.isModified() || !snapshot.selected) return;
  const std::string sentence = inQuotes(snapshot.selected->name) + " was changed and not saved.";
  remember(sentence, [this, snapshot = std::move(snapshot)] { restore(snapshot); });
}

void PresetSession::rememberChange(const std::string& sentence) {
  const auto& change = library_.store()->lastChange();
  const auto isCreated = [](const PresetUndo::Step& step) {
    return step.change == PresetUndo::Step::Change::created;
  };
  // A new preset is there to be deleted.
  if (!change || std::all_of(change->steps.begin(), change->steps.end(), isCreated)) return;
  remember(sentence,
           [this, change = *change, baseline = baseline_, selected = library_.selected()] {
             takeBackSaving(change, baseline, selected);
           });
}

void PresetSession::takeBackSaving(const PresetUndo& change, const PresetBaseline& baseline,
                                   const PresetPtr& selected) {
  const platform::Weak<PresetSession> self = this;
  takeBack(change);
  // The sound is as it was when it was saved.
  if (!self || !selected || library_.find(*selected) != library_.selected()) return;
  baseline_ = baseline;
  library_.setModified(baseline_.isModified());
}

void PresetSession::takeBack(const PresetUndo& change) {
  auto* store = library_.store();
  if (!store) return;
  store->restore(change);
  const platform::Weak<PresetSession> self = this;
  library_.announce();
  const auto deleted =
      std::find_if(change.steps.begin(), change.steps.end(), [](const PresetUndo::Step& step) {
        return step.change == PresetUndo::Step::Change::deleted;
      });
  if (!self || deleted == change.steps.end()) return;
  const PresetPtr back = library_.userPresetAt(deleted->url);
  if (!back || back == library_.selected()) return;
  library_.select(back);
  if (self && load(back) && self) wasLoaded();
}

void PresetSession::remember(const std::string& sentence, std::function<void()> takeBack) {
  if (steps_.size() == maximumSteps) steps_.erase(steps_.begin());
  steps_.push_back({sentence, std::move(takeBack)});
  if (delegate) delegate->presetSessionCanUndo(sentence);
}

void PresetSession::undo() {
  if (steps_.empty()) return;
  const Step step = std::move(steps_.back());
  steps_.pop_back();
  step.takeBack();
}

}  // namespace orvane
