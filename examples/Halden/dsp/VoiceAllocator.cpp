#include "examples/Halden/dsp/VoiceAllocator.h"

#include <algorithm>

namespace halden {

void VoiceAllocator::prepare(float sampleRate) {
  std::uint32_t seed = 1;
  for (Slot& slot : slots_) slot.voice.prepare(sampleRate, seed += 97);
  reset();
}

void VoiceAllocator::reset() {
  for (Slot& slot : slots_) {
    slot.voice.reset();
    slot.down = slot.sustained = slot.fading = false;
  }
  keyCount_ = 0;
  lastPitch_ = -1;
  pedal_ = false;
}

void VoiceAllocator::setMode(VoiceMode mode) {
  if (mode == mode_) return;
  mode_ = mode;
  const bool pedal = pedal_;
  releaseAll();
  pedal_ = pedal;
}

void VoiceAllocator::fade(Slot& slot) {
  slot.voice.fadeOut();
  slot.fading = true;
  slot.down = slot.sustained = false;
}

VoiceAllocator::Slot* VoiceAllocator::soundingSlot(int note) {
  for (Slot& slot : slots_) {
    if (!slot.voice.isIdle() && !slot.fading && slot.voice.note() == note) return &slot;
  }
  return nullptr;
}

VoiceAllocator::Slot& VoiceAllocator::freeSlot() {
  if (activeVoices() >= polyphony) {
    Slot* victim = nullptr;
    const auto comesBefore = [](const Slot& a, const Slot& b) {
      const bool aReleased = a.voice.isReleased(), bReleased = b.voice.isReleased();
      if (aReleased != bReleased) return aReleased;
      return aReleased ? a.voice.level() < b.voice.level() : a.order < b.order;
    };
    for (Slot& slot : slots_) {
      if (slot.voice.isIdle() || slot.fading) continue;
      if (!victim || comesBefore(slot, *victim)) victim = &slot;
    }
    if (victim) fade(*victim);
  }
  for (Slot& slot : slots_) {
    if (slot.voice.isIdle()) return slot;
  }
  // More than sixteen were stolen within the time of one fade: the one that is nearest its end.
  Slot* quietest = slots_.data();
  for (Slot& slot : slots_) {
    const bool isSofter = !quietest->fading || slot.voice.level() < quietest->voice.level();
    if (slot.fading && isSofter) quietest = &slot;
  }
  quietest->voice.reset();
  return *quietest;
}

void VoiceAllocator::startSlot(int note, float velocity, const ControlFrame& frame) {
  Slot& slot = freeSlot();
  const float from = lastPitch_ >= 0 ? lastPitch_ : static_cast<float>(note);
  slot.voice.start(note, velocity, from, frame);
  slot.order = ++order_;
  slot.down = true;
  slot.sustained = slot.fading = false;
  lastPitch_ = static_cast<float>(note);
}

void VoiceAllocator::noteOn(int note, float velocity, const ControlFrame& frame) {
  if (mode_ != VoiceMode::poly) return monoNoteOn(note, velocity, frame);
  if (Slot* same = soundingSlot(note)) {
    same->voice.continueAs(note, velocity, true, frame);
    same->order = ++order_;
    same->down = true;
    same->sustained = false;
    lastPitch_ = static_cast<float>(note);
    return;
  }
  startSlot(note, velocity, frame);
}

void VoiceAllocator::noteOff(int note, const ControlFrame& frame) {
  if (mode_ != VoiceMode::poly) return monoNoteOff(note, frame);
  for (Slot& slot : slots_) {
    if (!slot.down || slot.voice.note() != note) continue;
    slot.down = false;
    slot.sustained = pedal_;
    if (!pedal_) slot.voice.release();
  }
}

void VoiceAllocator::removeKey(int note) {
  const auto end = keys_.begin() + keyCount_;
  const auto last =
      std::remove_if(keys_.begin(), end, [note](const Key& key) { return key.note == note; });
  keyCount_ = static_cast<int>(last - keys_.begin());
}

void VoiceAllocator::monoNoteOn(int note, float velocity, const ControlFrame& frame) {
  const bool hadKey = keyCount_ > 0;
  removeKey(note);
  keys_[static_cast<std::size_t>(keyCount_++)] = {note, velocity};

  Slot* sounding = nullptr;
  for (Slot& slot : slots_) {
    if (slot.voice.isIdle() || slot.fading) continue;
    if (!sounding || slot.order > sounding->order) sounding = &slot;
  }
  if (!sounding) return startSlot(note, velocity, frame);
  const bool retrigger = mode_ == VoiceMode::mono || !hadKey || sounding->voice.isReleased();
  sounding->voice.continueAs(note, velocity, retrigger, frame);
  sounding->order = ++order_;
  sounding->down = true;
  sounding->sustained = false;
  lastPitch_ = static_cast<float>(note);
}

void VoiceAllocator::monoNoteOff(int note, const ControlFrame& frame) {
  const bool wasNewest =
      keyCount_ > 0 && keys_[static_cast<std::size_t>(keyCount_ - 1)].note == note;
  removeKey(note);
  if (!wasNewest) return;
  for (Slot& slot : slots_) {
    if (!slot.down) continue;
    if (keyCount_ > 0) {
      const Key& key = keys_[static_cast<std::size_t>(keyCount_ - 1)];
      slot.voice.continueAs(key.note, key.velocity, false, frame);
      lastPitch_ = static_cast<float>(key.note);
      continue;
    }
    slot.down = false;
    slot.sustained = pedal_;
    if (!pedal_) slot.voice.release();
  }
}

void VoiceAllocator::setSustain(bool down) {
  pedal_ = down;
  if (down) return;
  for (Slot& slot : slots_) {
    if (slot.sustained) slot.voice.release();
    slot.sustained = false;
  }
}

void VoiceAllocator::releaseAll() {
  for (Slot& slot : slots_) {
    if (slot.down || slot.sustained) slot.voice.release();
    slot.down = slot.sustained = false;
  }
  keyCount_ = 0;
  pedal_ = false;
}

void VoiceAllocator::silenceAll() {
  for (Slot& slot : slots_) {
    if (!slot.voice.isIdle()) fade(slot);
  }
  keyCount_ = 0;
  pedal_ = false;
}

void VoiceAllocator::beginFrame(const ControlFrame& frame) {
  for (Slot& slot : slots_) {
    if (slot.voice.isIdle()) {
      slot.down = slot.sustained = slot.fading = false;
    } else {
      slot.voice.beginFrame(frame);
    }
  }
}

void VoiceAllocator::render(const ControlFrame& frame, int begin, int count, float* left,
                            float* right) {
  for (Slot& slot : slots_) {
    if (!slot.voice.isIdle()) slot.voice.render(frame, begin, count, left, right);
  }
}

int VoiceAllocator::activeVoices() const {
  return static_cast<int>(std::count_if(slots_.begin(), slots_.end(), [](const Slot& slot) {
    return !slot.voice.isIdle() && !slot.fading;
  }));
}

bool VoiceAllocator::isSilent() const {
  return std::all_of(slots_.begin(), slots_.end(),
                     [](const Slot& slot) { return slot.voice.isIdle(); });
}

bool VoiceAllocator::isHeld() const {
  return std::any_of(slots_.begin(), slots_.end(),
                     [](const Slot& slot) { return slot.down || slot.sustained; });
}

const Voice* VoiceAllocator::newestVoice() const {
  const Slot* newest = nullptr;
  for (const Slot& slot : slots_) {
    if (slot.voice.isIdle() || slot.fading) continue;
    if (!newest || slot.order > newest->order) newest = &slot;
  }
  return newest ? &newest->voice : nullptr;
}

}  // namespace halden
