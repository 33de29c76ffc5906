#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <unordered_set>
#include <vector>

#include "Orvane/Preset.h"
#include "platform/AudioUnit.h"
#include "platform/KestroAUPreset.h"
#include "platform/Weak.h"

namespace orvane {

class PresetManager;

/// Told when a library has changed. Held weakly. May change the library, or end it.
class PresetLibraryObserver {
 public:
  virtual ~PresetLibraryObserver() = default;

  enum class Change {
    /// Other presets are there or shown; the selection may be another, too.
    presets,
    /// Another preset is selected, or the selected one has been changed or is as stored again.
    selection,
    /// Stars or marks of the presets that are shown.
    marks,
  };
  virtual void presetLibraryDidChange(Change change) = 0;
};

/// All presets that an editor knows, the user's and the audio unit's: their order, which of them are
/// shown, the walk of the arrows, the favourites among them and the one that is selected. Views show
/// it and ask it. The main controller owns it; a change that it announces reaches the libraries of
/// all editors of the process. User-interface thread only.
///
///     PresetLibrary library;
///     library.setStore(&presetManager);
///     library.reload();
///     library.setFilter({.searchText = "pad"});
///     library.shown().front()->name;
class PresetLibrary : public platform::WeakTarget {
 public:
  using PresetPtr = std::shared_ptr<Preset>;
  using Presets = std::vector<PresetPtr>;

  /// What narrows the shown presets down; all of it has to be met.
  struct Filter {
    /// Part of the name, in any case.
    std::string searchText{};
    /// Empty for none: "ALL", "USER", "FAVOURITES" or the name of a bank.
    std::string bank{};
    /// Presets that have any of them; none for all.
    std::vector<std::string> categories{};

    friend bool operator==(const Filter&, const Filter&) = default;
  };

  PresetLibrary();
  ~PresetLibrary();
  PresetLibrary(const PresetLibrary&) = delete;
  PresetLibrary& operator=(const PresetLibrary&) = delete;

  void addObserver(platform::Weak<PresetLibraryObserver> observer);

  // Where presets come from; reload follows a change

  PresetManager* store() const;
  void setStore(PresetManager* store);
  const std::optional<std::vector<platform::KestroAUPreset>>& factoryPresets() const {
    return factoryPresets_;
  }
  void setFactoryPresets(std::optional<std::vector<platform::KestroAUPreset>> records);
  /// The bank of factory presets that name none.
  const std::string& defaultBank() const { return defaultBank_; }
  void setDefaultBank(std::string bank);

  /// Looks at the store and the stored favourites anew. Presets whose files are as they were stay
  /// the same objects; so does the selection as long as its preset is there.
  void reload();
  /// Whether the store's files have been looked at.
  bool isLoaded() const { return loaded_; }
  /// The files have changed: this library and those of all other editors are loaded anew, the
  /// others in the next turn of the run loop.
  void announce();

  // Lists

  /// By name; a preset of the name "DEFAULT", in any case, is first.
  const Presets& all() const { return all_; }
  /// Those of `all` that the filter lets through.
  const Presets& shown() const { return shown_; }
  /// What the arrows walk through, whatever is shown: the user's by name, then the factory's.
  const Presets& walk() const { return walk_; }
  const Filter& filter() const { return filter_; }
  void setFilter(Filter filter);
  bool isNarrowed() const;
  /// Whether a preset, whose categories are in lower case, has this one in any case.
  static bool hasCategory(const Preset& preset, const std::string& category);

  /// The preset of the list that is this one: of this file or, of the factory's, of this number and
  /// name in this bank. Null when it is not there.
  PresetPtr find(const Preset& like) const;
  /// The user's preset in this file.
  PresetPtr userPresetAt(const std::string& url) const;
  /// The user's first preset of this name, in any form and, if asked for, in any case.
  PresetPtr userPresetNamed(const std::string& name) const;
  /// Before or after a preset in the walk, around its ends; null when it is not in the walk.
  PresetPtr neighbourInWalk(const Preset& preset, bool backward) const;
  /// Which preset takes the place of one that leaves with others: the next one shown that stays, else
  /// the one before; one of the same kind if there is one. Null when there is none.
  PresetPtr neighbourShown(const Preset& preset, const Presets& leaving) const;

  // Selection: the preset that is loaded

  /// One of `all`, or null.
  const PresetPtr& selected() const { return selected_; }
  /// What was selected before it: where a choice that cannot be loaded goes back to.
  const PresetPtr& selectedBefore() const { return selectedBefore_; }
  /// Selects the preset of the list that this one is; one that is not there stays selected until
  /// the next reload. Loads nothing.
  void select(const PresetPtr& preset);
  /// Selects what the audio unit says that it has loaded.
  void follow(const platform::PresetSource& audioUnit);
  /// Whether the sound has been changed since the selected preset was loaded or saved.
  bool isModified() const { return modified_; }
  void setModified(bool modified);

  // Marks: several presets that the next action is for

  /// In the order of what is shown; empty for none, and then an action is for the selected one.
  Presets marked() const;
  bool isMarked(const Preset& preset) const { return marked_.contains(&preset); }
  std::size_t markCount() const { return marked_.size(); }
  void toggleMark(const PresetPtr& preset);
  /// All presets of `order` from the one that was marked, reached or selected last to this one.
  void extendMarks(const PresetPtr& preset, const Presets& order);
  void markAllShown();
  /// `reached` is where extendMarks begins then; null for the selected preset.
  void clearMarks(const PresetPtr& reached = nullptr);

  /// Stores the star of a preset and shows it in all editors of the process.
  static void setFavourite(Preset& preset, bool isFavourite);

 private:
  struct Entry {
    PresetPtr preset;
    /// In upper case, by which presets are sorted.
    std::string sortName;
    std::string lowerName;
    std::string lowerBank;
    std::string uniqueName;
    /// Factory presets before the user's, local files before those in the cloud.
    int kind = 0;
    /// Where its name ends in names_.
    std::size_t nameEnd = 0;
  };

  static Entry entryFor(PresetPtr preset);
  static bool comesBefore(const Entry& a, const Entry& b);
  /// Replaces the entries of one kind by these, keeping what is known of those that stay.
  void update(const Presets& before, const Presets& now);
  void insert(std::vector<Entry> added);
  void takeDefaultBack();
  void rebuildLists();
  bool refreshFavourites();
  void refreshSelection();
  void applyFilter();
  bool passesBank(const Entry& entry, const std::string& lowerBank) const;
  void tell(PresetLibraryObserver::Change change);

  std::vector<platform::Weak<PresetLibraryObserver>> observers_;
  platform::Weak<PresetManager> store_;
  std::optional<std::vector<platform::KestroAUPreset>> factoryPresets_;
  bool factoryChanged_ = false;
  bool loaded_ = false;
  std::string defaultBank_ = "BANK A";

  /// What the last reload found, in the order of the store and of the records.
  Presets users_, factory_;
  /// As `all`.
  std::vector<Entry> entries_;
  /// The place that the first entry was taken from.
  std::size_t defaultFrom_ = 0;
  /// The names of all entries in lower case, one behind the other, for the search.
  std::string names_;
  Presets all_, shown_, walk_;
  Filter filter_;
  PresetPtr selected_, selectedBefore_;
  bool modified_ = false;
  std::unordered_set<const Preset*> marked_;
  PresetPtr markAnchor_;
};

}  // namespace orvane
