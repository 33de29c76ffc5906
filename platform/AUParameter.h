#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace platform {

/// Names a parameter to the host; never changes once a plug-in is released.
using AUParameterAddress = std::uint64_t;

/// What a parameter's value measures; the numbers are those that hosts store.
enum class AudioUnitParameterUnit : std::uint32_t {
  generic = 0,
  indexed = 1,
  boolean = 2,
  percent = 3,
  seconds = 4,
  sampleFrames = 5,
  phase = 6,
  rate = 7,
  hertz = 8,
  cents = 9,
  relativeSemiTones = 10,
  midiNoteNumber = 11,
  midiController = 12,
  decibels = 13,
  linearGain = 14,
  degrees = 15,
  equalPowerCrossfade = 16,
  mixerFaderCurve1 = 17,
  pan = 18,
  meters = 19,
  absoluteCents = 20,
  octaves = 21,
  bpm = 22,
  beats = 23,
  milliseconds = 24,
  ratio = 25,
  customUnit = 26,
};

/// Bits of AUParameter::flags().
namespace AudioUnitParameterFlags {
inline constexpr std::uint32_t readable = 1u << 30;
inline constexpr std::uint32_t writable = 1u << 31;
/// Shown, and driven by MIDI, on a squared scale.
inline constexpr std::uint32_t displaySquared = 1u << 22;
inline constexpr std::uint32_t displayLogarithmic = 1u << 20;
/// Changes too drastically to be automated smoothly (a choice, a mode).
inline constexpr std::uint32_t nonRealTime = 1u << 29;
/// Counts something: knows whole values only, as an indexed or a Boolean one does in any case.
inline constexpr std::uint32_t wholeValues = 1u << 12;
}  // namespace AudioUnitParameterFlags

/// Whether a parameter knows whole values only: a choice, a switch or a count.
constexpr bool takesWholeValues(AudioUnitParameterUnit unit, std::uint32_t flags) {
  return unit == AudioUnitParameterUnit::indexed || unit == AudioUnitParameterUnit::boolean ||
         (flags & AudioUnitParameterFlags::wholeValues) != 0;
}

/// What AUParameterTree::tokenByAddingParameterObserver returns; null names nobody.
using AUParameterObserverToken = struct AUParameterObserverTokenTag*;

/// One parameter of an audio unit. `value` and `setValue` may be called on any thread; all else
/// never changes while the audio unit lives.
class AUParameter {
 public:
  virtual ~AUParameter() = default;

  virtual const std::string& key() const = 0;
  virtual AUParameterAddress address() const = 0;
  /// The name that hosts show.
  virtual const std::string& displayName() const = 0;
  virtual float minValue() const = 0;
  virtual float maxValue() const = 0;
  virtual AudioUnitParameterUnit unit() const = 0;
  virtual std::uint32_t flags() const = 0;
  /// Texts of the values of an indexed parameter, from minValue up; empty for any other.
  virtual const std::vector<std::string>& valueStrings() const = 0;

  virtual float value() const = 0;
  /// Clamps `value` to the range (a NaN changes nothing) and rounds one that is to be whole, stores
  /// it and calls every observer of the tree but the one of `originator`, on this thread. Takes no
  /// lock and allocates nothing.
  virtual void setValue(float value, AUParameterObserverToken originator = nullptr) = 0;

  /// The user takes hold of the parameter, and lets go: hosts record automation in between. Each
  /// begin has one end. User-interface thread.
  virtual void beginGesture() = 0;
  virtual void endGesture() = 0;

  /// `value` as a person reads it, with its unit: "632 Hz", "-6.0 dB", "Saw". UTF-8.
  virtual std::string stringFromValue(float value) const = 0;
};

/// All parameters of one audio unit and the observers of their values.
class AUParameterTree {
 public:
  /// Called with the address and the new value on the thread that set it, which may be the audio
  /// thread: takes no lock, allocates nothing, makes no system call beyond one wake-up.
  using Observer = std::function<void(AUParameterAddress, float)>;

  virtual ~AUParameterTree() = default;

  virtual const std::vector<AUParameter*>& allParameters() const = 0;
  /// Null when no parameter has this address.
  virtual AUParameter* parameterWithAddress(AUParameterAddress address) const = 0;

  /// Any thread but the audio thread; changes made from now on are observed.
  virtual AUParameterObserverToken tokenByAddingParameterObserver(Observer observer) = 0;
  /// Returns only when no call of the observer is under way, after which none comes. Not to be
  /// called by an observer; any other thread but the audio thread. A null token does nothing.
  virtual void removeParameterObserver(AUParameterObserverToken token) = 0;

  /// Called on the user-interface thread at every begin (true) and end (false) of a gesture; the
  /// format that wraps the audio unit is the one observer. An empty function removes it.
  virtual void setGestureObserver(std::function<void(AUParameterAddress, bool began)> observer) = 0;
};

}  // namespace platform
