#pragma once

#include <array>
#include <cstdint>

#include "examples/Halden/dsp/Voice.h"

namespace halden {

enum class VoiceMode { poly, mono, legato };

/// Gives notes to voices. Sixteen notes sound at once; the voice of a seventeenth is taken from
/// the quietest released note, or else the oldest, which fades out in one of the spare voices.
/// In the mono modes the newest key that is down sounds, and its predecessor again after it.
class VoiceAllocator {
 public:
  static constexpr int polyphony = 16;

  void prepare(float sampleRate);
  /// Silent at once.
  void reset();

  void setMode(VoiceMode mode);
  void noteOn(int note, float velocity, const ControlFrame& frame);
  void noteOff(int note, const ControlFrame& frame);
  void setSustain(bool down);
  /// Every key is let go, the pedal too.
  void releaseAll();
  /// Every voice is faded out at once.
  void silenceAll();

  void beginFrame(const ControlFrame& frame);
  void render(const ControlFrame& frame, int begin, int count, float* left, float* right);

  /// Voices that sound; those being faded out do not count.
  int activeVoices() const;
  bool isSilent() const;
  /// A key is down, or the pedal holds a note.
  bool isHeld() const;
  /// The voice that was started last, or null when it has ended.
  const Voice* newestVoice() const;

 private:
  struct Slot {
    Voice voice;
    std::uint64_t order = 0;
    /// The key is down, or only the pedal holds it.
    bool down = false, sustained = false;
    bool fading = false;
  };
  struct Key {
    int note;
    float velocity;
  };

  Slot* soundingSlot(int note);
  Slot& freeSlot();
  void startSlot(int note, float velocity, const ControlFrame& frame);
  void monoNoteOn(int note, float velocity, const ControlFrame& frame);
  void monoNoteOff(int note, const ControlFrame& frame);
  void removeKey(int note);
  void fade(Slot& slot);

  std::array<Slot, std::size_t{2} * polyphony> slots_;
  std::array<Key, 128> keys_{};
  int keyCount_ = 0;
  std::uint64_t order_ = 0;
  VoiceMode mode_ = VoiceMode::poly;
  float lastPitch_ = -1;
  bool pedal_ = false;
};

}  // namespace halden
