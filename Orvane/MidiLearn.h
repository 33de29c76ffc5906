#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "Orvane/KestroAUViewController.h"
#include "platform/AudioUnit.h"

namespace orvane {

/// A host's side of MIDI learn, for a program or a plug-in format that holds an audio unit: it
/// keeps which message moves which parameter, moves the parameters, and while an editor's control
/// waits, binds it to the next control change or note. Belongs to the user-interface thread, but
/// for `receive`.
///
///     orvane::MidiLearn midi(audioUnit);
///     midi.setEditor(&controller);   // while one is open
///     midi.receive({bytes, size});   // from the device's or the audio thread
///     midi.poll(seconds);            // from a timer
///
/// The audio unit outlives it.
class MidiLearn : public KestroAUViewControllerDelegate, public platform::WeakTarget {
 public:
  /// The status byte first; the value that it brings counts for nothing.
  using Message = KestroAUViewController::MidiMessage;
  using Bindings = std::map<std::string, Message>;

  explicit MidiLearn(platform::AudioUnit& audioUnit);
  /// Ends the gestures that are under way.
  ~MidiLearn() override;

  /// Becomes the host delegate of an editor whose view is loaded, and shows it the bindings. Null
  /// when it closes; learn mode ends with it.
  void setEditor(KestroAUViewController* editor);
  bool isLearning() const;
  /// Does nothing without an editor.
  void setLearning(bool learning);
  /// Called after learn mode has begun or ended.
  std::function<void()> learningChanged;
  /// A control waits for the next message: it was selected, and nothing has come since.
  bool isWaiting() const { return capturing_.load(); }
  /// Called after that has changed.
  std::function<void()> waitingChanged;

  /// By parameter key.
  const Bindings& bindings() const { return bindings_; }
  /// Binds a key in place of what it was bound to. False for a key without a parameter, or a
  /// message that moves nothing: notes, control changes, pressure and pitch bend do.
  bool bind(const std::string& key, const Message& message);
  void remove(const std::string& key);
  void removeAll();
  /// Called after every change of the bindings but setState.
  std::function<void()> bindingsChanged;

  /// The bindings as a dictionary of arrays of bytes by parameter key.
  platform::PropertyList state() const;
  /// Takes the bindings of a state in place of its own; null, or what is no such dictionary, is
  /// none. Entries that cannot be used are skipped.
  void setState(const platform::PropertyList* state);

  /// Adds the bindings to the state that a host stores, or a dictionary without them where there are none.
  void addTo(platform::PropertyList& hostState) const;
  /// Takes the bindings of a host's state, in place of its own, and takes them out of it: an audio unit
  /// knows nothing of them. A preset that a host loads has none, and leaves those that are there.
  void takeFrom(platform::PropertyList& hostState);
  /// The entry that makes a host's state a preset: the sound alone.
  static constexpr const char* presetEntry = "isPreset";

  /// A message that has arrived: moves what is bound to it, or keeps it for the control that waits.
  /// Of a control that sends several messages at once (14 bits in two control changes, a numbered
  /// parameter) it keeps the coarse value.
  /// False for one that does neither. Any thread; takes no lock and allocates nothing.
  bool receive(std::span<const std::uint8_t> message);
  /// Binds the control that waits to what `receive` has kept, and makes gestures of what it has moved
  /// since: one goes on until its parameter has rested for `quietTime`. `now` is in seconds, of any
  /// clock.
  void poll(double now = 0);
  static constexpr double quietTime = 0.5;
  /// Instead of poll, for who makes no gestures: calls `visit` with each parameter that `receive` has
  /// moved since. The thread that calls `receive`.
  template <class Visit>
  void takeMoved(const Visit& visit) {
    for (std::size_t i = 0; i < targetCount_; ++i)
      if (targets_[i].hasMoved.load(std::memory_order_relaxed) &&
          targets_[i].hasMoved.exchange(false))
        visit(*targets_[i].parameter);
  }

  void didSelectMidiMap(const std::shared_ptr<kestroui::ParamKey>& key) override;
  void deleteMidiMap(const std::shared_ptr<kestroui::ParamKey>& key) override;
  void midiMappingDidChange() override;

 private:
  /// What tells bound messages apart: the status byte and the number, never 0.
  using Code = std::uint32_t;
  struct Heard {
    Code code = 0;
    std::uint8_t value = 0;
    bool isNoteOn = false;
  };
  struct Target {
    platform::AUParameter* parameter = nullptr;
    std::atomic<Code> code{0};
    /// Since the last poll.
    std::atomic<bool> hasMoved{false};
    /// When its gesture ends unless it moves again.
    std::optional<double> heldUntil;
  };

  static std::optional<Heard> hear(std::span<const std::uint8_t> message);
  /// Keeps the first message that a control may be bound to.
  void capture(Code code);
  Target* target(const std::string& key);
  void setWaiting(std::shared_ptr<kestroui::ParamKey> key);
  void pollGestures(double now);
  /// The bindings of other keys of the same parameter go.
  void removeAliases(const std::string& key, const Target& target);
  void show(const std::string& key, const std::optional<Message>& message);
  void changed();

  /// One for every parameter, in the audio unit's order.
  std::size_t targetCount_;
  std::unique_ptr<Target[]> targets_;
  std::map<std::string, Target*> targetOfKey_;
  Bindings bindings_;
  platform::Weak<KestroAUViewController> editor_;
  /// The key that waits for a message, or null.
  std::shared_ptr<kestroui::ParamKey> waiting_;
  /// The same for `receive`.
  std::atomic<bool> capturing_{false};
  /// The message that it is to be bound to, or 0.
  std::atomic<Code> captured_{0};
};

}  // namespace orvane
