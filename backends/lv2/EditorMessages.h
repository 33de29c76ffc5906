#pragma once

#include <lv2/atom/atom.h>
#include <lv2/atom/forge.h>

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "backends/lv2/Urids.h"
#include "platform/AudioUnit.h"
#include "platform/LiveBuffer.h"

namespace lv2_backend {

/// What the sound and the editor tell each other beyond the values of ports. The host carries it
/// as atoms, be they in one process or in two.
struct EditorMessage {
  enum class Kind {
    /// From the editor: it is there, and wants to know the state and the live values.
    opened,
    closed,
    /// From the editor: one of its controls waits for a MIDI message, or none any more.
    midiWanted,
    midiUnwanted,
    /// Either way: all that the state holds beside the values of parameters has changed.
    state,
    /// From the sound: live values and modulation flags.
    live,
    /// From the sound: the parameters whose value no port has told it.
    ownValues,
    /// From the sound: the newest samples of one of LiveSounds.
    sound,
    /// Not one of ours.
    other,
  };

  Kind kind = Kind::other;
  /// A property list.
  std::string_view state;
  /// Live values are as many as LiveParameters has, flags 0 or 1; or samples, the oldest first.
  std::span<const float> values;
  std::span<const std::int32_t> modulating;
  /// Of ownValues: the places of its parameters among PortLayout's.
  std::span<const std::int32_t> indices;
  /// Which of LiveSounds.
  std::size_t sound = 0;

  /// Reads what `object` holds; the views point into it.
  static EditorMessage read(const LV2_Atom_Object& object, const Urids& urids);
  /// Bytes that a message takes, at most.
  static std::size_t sizeOfState(std::size_t length) { return 128 + length; }
  static std::size_t sizeOfLive(std::size_t count) { return 160 + 8 * count; }
  static std::size_t sizeOfSound(std::size_t samples) { return 160 + 4 * samples; }

  /// Appends a message, which has to fit, as a whole atom.
  static void forgeOpened(LV2_Atom_Forge& forge, const Urids& urids);
  static void forgeClosed(LV2_Atom_Forge& forge, const Urids& urids);
  static void forgeMidiWanted(LV2_Atom_Forge& forge, const Urids& urids, bool wanted);
  static void forgeState(LV2_Atom_Forge& forge, const Urids& urids, std::string_view state);
  static void forgeLive(LV2_Atom_Forge& forge, const Urids& urids, std::span<const float> values,
                        std::span<const std::int32_t> modulating);
  static void forgeOwnValues(LV2_Atom_Forge& forge, const Urids& urids,
                             std::span<const std::int32_t> indices, std::span<const float> values);
  static void forgeSound(LV2_Atom_Forge& forge, const Urids& urids, std::size_t sound,
                         std::span<const float> samples);
};

/// The parameters whose live value or modulation flag an audio unit publishes, in the tree's
/// order: the same for the sound's audio unit and the editor's.
class LiveParameters {
 public:
  struct Source {
    /// Place in the tree's order.
    std::size_t index;
    const std::atomic<float>* value;
    const std::atomic<bool>* modulating;
  };

  explicit LiveParameters(platform::AudioUnit& audioUnit);
  const std::vector<Source>& sources() const { return sources_; }

 private:
  std::vector<Source> sources_;
};

/// The sounds that displays of an audio unit's parameters show, each once and in the tree's order:
/// the same for the sound's audio unit and the editor's.
class LiveSounds {
 public:
  /// What an editor keeps of each: a third of a second at 48 kHz, more than any display shows.
  static constexpr std::size_t keptSamples = 16384;

  explicit LiveSounds(platform::AudioUnit& audioUnit);
  const std::vector<const platform::LiveBuffer*>& buffers() const { return buffers_; }

 private:
  std::vector<const platform::LiveBuffer*> buffers_;
};

}  // namespace lv2_backend
