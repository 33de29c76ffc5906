#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "Orvane/PresetBaseline.h"
#include "Orvane/PresetLibrary.h"
#include "platform/AudioUnit.h"
#include "platform/Weak.h"

namespace orvane {

struct PresetUndo;

/// Told what a session does. Held weakly. May end the session.
class PresetSessionDelegate {
 public:
  virtual ~PresetSessionDelegate() = default;

  virtual void presetSessionWillLoad() {}
  virtual void presetSessionWillSave() {}
  /// The audio unit has loaded something, or has another preset's name.
  virtual void presetSessionDidLoad() = 0;
  /// Something has happened that the user may want to take back: see PresetSession::undo.
  virtual void presetSessionCanUndo(const std::string& sentence) = 0;
};

/// What happens between an editor's presets and its sound: the selected preset is loaded, saved,
/// removed and named anew, the sound is changed and goes back to what was stored, and what was done
/// can be taken back. The main controller owns it. User-interface thread only.
class PresetSession : public platform::WeakTarget {
 public:
  using PresetPtr = PresetLibrary::PresetPtr;
  using UserPresets = std::vector<std::shared_ptr<UserPreset>>;

  platform::Weak<PresetSessionDelegate> delegate;

  PresetLibrary& library() { return library_; }
  void setAudioUnit(platform::AudioUnit* audioUnit);

  // The sound

  /// The value at this address has changed: by hand, or because something else was loaded.
  void follow(platform::AUParameterAddress address);
  /// What the audio unit has loaded is the state that counts as unchanged.
  void wasLoaded();
  /// Applies a preset; false when it could not be read.
  bool load(const PresetPtr& preset);

  // What the user does

  /// The library has a new selection: loads it. One that cannot be loaded gives way to the one
  /// before.
  void didSelect(const PresetPtr& preset);
  /// Loads a preset for a listen: until endAudition, what was there before can come back.
  void audition(const PresetPtr& preset);
  bool isAuditioning() const { return auditioned_.has_value(); }
  enum class Verdict { keep, goBack };
  void endAudition(Verdict verdict);
  /// Loads the selected preset again.
  void revert();

  /// Saves the sound as a new preset, which the list then has. The path of its file.
  std::optional<std::string> saveNew(const std::string& name,
                                     const std::vector<std::string>& categories);
  /// Replaces a preset, by the sound as it is and with these categories.
  bool save(const UserPreset& preset, const std::vector<std::string>& categories);
  /// Saves the sound as the preset is to be called, and removes it under its old name.
  std::optional<std::string> rename(const UserPreset& preset, const std::string& name,
                                    const std::vector<std::string>& categories);
  /// Gives presets other categories.
  void setCategories(const std::vector<PresetCategories>& categories);
  /// Removes presets. The neighbour of the selected one takes its place.
  void remove(const UserPresets& presets);

  // What can be taken back

  bool canUndo() const { return !steps_.empty(); }
  /// What the last step was, in a sentence; empty when there is none.
  std::string undoTitle() const { return steps_.empty() ? std::string() : steps_.back().sentence; }
  void undo();

 private:
  struct Snapshot {
    platform::PropertyList state;
    PresetPtr selected;
    PresetBaseline baseline;
  };
  struct Step {
    std::string sentence;
    std::function<void()> takeBack;
  };

  Snapshot snapshot(const PresetPtr& selected) const;
  void restore(const Snapshot& snapshot);
  /// A sound that was changed has gone: it can come back.
  void rememberLeft(Snapshot snapshot);
  /// What the store has done last, if it can be taken back.
  void rememberChange(const std::string& sentence);
  void takeBack(const PresetUndo& change);
  void takeBackSaving(const PresetUndo& change, const PresetBaseline& baseline,
                      const PresetPtr& selected);
  void remember(const std::string& sentence, std::function<void()> takeBack);

  PresetLibrary library_;
  platform::Weak<platform::AudioUnit> audioUnit_;
  unsigned generation_ = 0;
  PresetBaseline baseline_;
  std::optional<Snapshot> auditioned_;
  std::vector<Step> steps_;
};

}  // namespace orvane
