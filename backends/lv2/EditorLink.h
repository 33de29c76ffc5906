#pragma once

#include <lv2/atom/atom.h>
#include <lv2/atom/forge.h>
#include <lv2/worker/worker.h>

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "Orvane/MidiLearn.h"
#include "backends/lv2/EditorMessages.h"
#include "backends/lv2/Urids.h"
#include "platform/AudioUnit.h"

namespace lv2_backend {

/// The sound's end of the conversation with the editor. What takes time (the state is text) is done
/// by the host's worker; without a worker the editor only has the ports.
class EditorLink {
 public:
  /// The longest state in bytes that is passed on, either way.
  static constexpr std::size_t stateCapacity = 32768;

  /// `schedule` may be null. `access` is held while the state, bindings included, is read or set.
  EditorLink(platform::AudioUnit& audioUnit, orvane::MidiLearn& midiLearn, const Urids& urids,
             const LV2_URID_Map& map, const LV2_Worker_Schedule* schedule, std::mutex& access,
             double sampleRate);
  ~EditorLink();
  EditorLink(const EditorLink&) = delete;
  EditorLink& operator=(const EditorLink&) = delete;

  // Audio thread

  void receive(const LV2_Atom_Object& object);
  /// A control of the editor waits for a MIDI message.
  bool wantsMidi() const { return wantsMidi_; }
  /// Passes a MIDI message of this cycle on to an editor that is open; what does not fit is lost.
  void receiveMidi(const std::uint8_t* bytes, std::uint32_t size);
  /// Fills the port of messages to the editor for a cycle of `frames`; its size says its room.
  void writeMessages(LV2_Atom_Sequence& port, std::uint32_t frames);
  /// The editor, which is open, has yet to be told what the sound has moved by itself.
  bool wantsOwnValues() const {
    return wantsOwnValues_.load(std::memory_order_relaxed) &&
           isOpen_.load(std::memory_order_acquire);
  }
  /// What is told with the next messages; the memory lives until then.
  void tellOwnValues(std::span<const std::int32_t> indices, std::span<const float> values);
  /// Whether the editor's state was set since the last call.
  bool takeStateSet() { return stateSet_.exchange(false, std::memory_order_acquire); }

  // Any other thread

  /// What `receive` scheduled.
  void work(std::string_view request);
  /// The host has set the audio unit's state: the editor has to know. `access` is held.
  void stateRestored();

 private:
  /// Text on its way to the audio thread, and back to be freed.
  struct Outgoing {
    std::string text;
    Outgoing* next = nullptr;
  };

  bool schedule(char request);
  void passState();
  void setState(std::string_view text);
  void sendState();
  void freeSent();
  void writeState(std::uint32_t room);
  void writeOwnValues(std::uint32_t room);
  void writeLive(std::uint32_t room);
  void writeSounds(std::uint32_t capacity);
  bool isStillSilent(std::size_t sound, std::size_t count);
  void writeMidi(std::uint32_t capacity);

  platform::AudioUnit& audioUnit_;
  orvane::MidiLearn& midiLearn_;
  const Urids& urids_;
  const LV2_Worker_Schedule* schedule_;
  std::mutex& access_;
  LV2_Atom_Forge forge_{};

  std::atomic<bool> isOpen_{false};
  std::atomic<bool> stateSet_{false};
  std::atomic<bool> wantsOwnValues_{false};
  std::span<const std::int32_t> ownIndices_;
  std::span<const float> ownValues_;

  /// The editor's newest state, of the audio thread alone, until the worker is free to take it.
  std::unique_ptr<char[]> next_;
  std::optional<std::size_t> nextSize_;
  /// How often the host has restored a state, and how often it had when the editor's arrived: one
  /// that a restored state has overtaken is no longer wanted.
  std::atomic<unsigned> restored_{0};
  unsigned nextAfter_ = 0;
  /// The editor's state between the audio thread and the worker, whose turn it is while busy.
  std::unique_ptr<char[]> incoming_;
  std::size_t incomingSize_ = 0;
  unsigned incomingAfter_ = 0;
  std::atomic<bool> incomingBusy_{false};

  std::atomic<Outgoing*> outgoing_{nullptr};
  std::atomic<Outgoing*> sent_{nullptr};

  struct ShortMessage {
    std::uint8_t bytes[3];
    std::uint32_t size;
  };
  static constexpr std::size_t midiCapacity = 64;
  /// Of the audio thread alone, as are the messages.
  bool wantsMidi_ = false;
  std::array<ShortMessage, midiCapacity> midi_{};
  std::size_t midiCount_ = 0;

  LiveParameters live_;
  std::vector<float> values_, sentValues_;
  std::vector<std::int32_t> modulating_, sentModulating_;
  LiveSounds sounds_;
  /// How many samples of each there had been when the last were sent.
  std::vector<std::uint64_t> sentSamples_;
  /// How many samples of silence were sent of each in a row: once that is all that a display can show,
  /// more of it shows nothing new.
  std::vector<std::size_t> sentSilence_;
  std::vector<float> samples_;

  std::uint32_t livePeriod_;
  std::uint32_t sinceLive_ = 0;
  bool liveIsStale_ = true;
};

}  // namespace lv2_backend
