#include "backends/lv2/EditorLink.h"

#include <algorithm>
#include <utility>

#include "backends/lv2/PluginState.h"

namespace lv2_backend {
namespace {

// What the worker is asked to do.
constexpr char opened = 'o';
constexpr char closed = 'c';
constexpr char stateArrived = 's';

constexpr double displayRate = 60;

}  // namespace

EditorLink::EditorLink(platform::AudioUnit& audioUnit, orvane::MidiLearn& midiLearn,
                       const Urids& urids, const LV2_URID_Map& map,
                       const LV2_Worker_Schedule* schedule, std::mutex& access, double sampleRate)
    : audioUnit_(audioUnit),
      midiLearn_(midiLearn),
      urids_(urids),
      schedule_(schedule),
      access_(access),
      next_(std::make_unique<char[]>(stateCapacity)),
      incoming_(std::make_unique<char[]>(stateCapacity)),
      live_(audioUnit),
      values_(live_.sources().size()),
      sentValues_(values_.size()),
      modulating_(values_.size()),
      sentModulating_(values_.size()),
      sounds_(audioUnit),
      sentSamples_(sounds_.buffers().size()),
      sentSilence_(sentSamples_.size()),
      samples_(LiveSounds::keptSamples),
      livePeriod_(static_cast<std::uint32_t>(sampleRate / displayRate)) {
  // It maps a dozen URIs, once; the structure of the map is only read.
  lv2_atom_forge_init(&forge_, const_cast<LV2_URID_Map*>(&map));
}

EditorLink::~EditorLink() {
  delete outgoing_.load();
  freeSent();
}

bool EditorLink::schedule(char request) {
  return schedule_ &&
         schedule_->schedule_work(schedule_->handle, 1, &request) == LV2_WORKER_SUCCESS;
}

void EditorLink::receive(const LV2_Atom_Object& object) {
  const EditorMessage message = EditorMessage::read(object, urids_);
  switch (message.kind) {
    case EditorMessage::Kind::opened:
      schedule(opened);
      liveIsStale_ = true;
      std::fill(sentSilence_.begin(), sentSilence_.end(), 0);
      wantsOwnValues_.store(true, std::memory_order_relaxed);
      wantsMidi_ = false;
      break;
    case EditorMessage::Kind::closed:
      schedule(closed);
      wantsMidi_ = false;
      break;
    case EditorMessage::Kind::midiWanted:
    case EditorMessage::Kind::midiUnwanted:
      wantsMidi_ = message.kind == EditorMessage::Kind::midiWanted;
      break;
    case EditorMessage::Kind::state:
      if (message.state.size() > stateCapacity) break;
      nextSize_ = message.state.copy(next_.get(), stateCapacity);
      nextAfter_ = restored_.load(std::memory_order_acquire);
      passState();
      break;
    case EditorMessage::Kind::live:
    case EditorMessage::Kind::ownValues:
    case EditorMessage::Kind::sound:
    case EditorMessage::Kind::other:
      break;
  }
}

void EditorLink::passState() {
  if (!nextSize_ || incomingBusy_.load(std::memory_order_acquire)) return;
  std::swap(incoming_, next_);
  incomingSize_ = *nextSize_;
  incomingAfter_ = nextAfter_;
  incomingBusy_.store(true, std::memory_order_release);
  if (schedule(stateArrived)) {
    nextSize_.reset();
    return;
  }
  // The host's worker is full; the next cycle tries again.
  std::swap(incoming_, next_);
  incomingBusy_.store(false, std::memory_order_relaxed);
}

void EditorLink::receiveMidi(const std::uint8_t* bytes, std::uint32_t size) {
  if (size < 1 || size > sizeof(ShortMessage::bytes)) return;
  // Of several that say the same thing of the same control only the last counts.
  const ShortMessage* const first = midi_.data();
  const ShortMessage* const end = first + midiCount_;
  const auto* const before = std::find_if(first, end, [&](const ShortMessage& other) {
    return other.size == 3 && size == 3 && std::equal(bytes, bytes + 2, other.bytes);
  });
  const auto place = static_cast<std::size_t>(before - first);
  if (place == midi_.size()) return;
  midiCount_ = std::max(midiCount_, place + 1);
  ShortMessage& message = midi_[place];
  std::copy_n(bytes, size, message.bytes);
  message.size = size;
}

void EditorLink::work(std::string_view request) {
  if (request == std::string_view(&opened, 1)) {
    const std::lock_guard lock(access_);
    audioUnit_.hasUI(true);
    isOpen_.store(true, std::memory_order_release);
    sendState();
  } else if (request == std::string_view(&closed, 1)) {
    const std::lock_guard lock(access_);
    isOpen_.store(false, std::memory_order_relaxed);
    audioUnit_.hasUI(false);
  } else if (request == std::string_view(&stateArrived, 1) &&
             incomingBusy_.load(std::memory_order_acquire)) {
    setState({incoming_.get(), incomingSize_});
    incomingBusy_.store(false, std::memory_order_release);
  }
}

void EditorLink::setState(std::string_view text) {
  const std::lock_guard lock(access_);
  if (incomingAfter_ != restored_.load(std::memory_order_relaxed)) return;
  if (!lv2_backend::setState(audioUnit_, midiLearn_, text)) return;
  // Values that the audio thread set meanwhile are lost; the ports still have them.
  stateSet_.store(true, std::memory_order_release);
}

void EditorLink::stateRestored() {
  restored_.fetch_add(1, std::memory_order_release);
  stateSet_.store(true, std::memory_order_release);
  wantsOwnValues_.store(true, std::memory_order_relaxed);
  if (isOpen_.load(std::memory_order_acquire)) sendState();
}

void EditorLink::sendState() {
  freeSent();
  auto next = std::make_unique<Outgoing>();
  next->text = stateBesideParameters(audioUnit_, midiLearn_);
  if (next->text.size() <= stateCapacity) delete outgoing_.exchange(next.release());
}

void EditorLink::freeSent() {
  Outgoing* entry = sent_.exchange(nullptr);
  while (entry) delete std::exchange(entry, entry->next);
}

void EditorLink::writeMessages(LV2_Atom_Sequence& port, std::uint32_t frames) {
  passState();
  const std::uint32_t capacity = port.atom.size;
  lv2_atom_forge_set_buffer(&forge_, reinterpret_cast<std::uint8_t*>(&port), capacity);
  LV2_Atom_Forge_Frame frame;
  if (!lv2_atom_forge_sequence_head(&forge_, &frame, 0)) {
    midiCount_ = 0;
    return;
  }
  if (isOpen_.load(std::memory_order_acquire)) {
    writeState(capacity - forge_.offset);
    writeOwnValues(capacity - forge_.offset);
    writeMidi(capacity);
    sinceLive_ += frames;
    if (sinceLive_ >= livePeriod_) {
      sinceLive_ = 0;
      writeLive(capacity - forge_.offset);
      writeSounds(capacity);
    }
  }
  midiCount_ = 0;
  lv2_atom_forge_pop(&forge_, &frame);
}

void EditorLink::writeSounds(std::uint32_t capacity) {
  for (std::size_t i = 0; i < sentSamples_.size(); ++i) {
    const platform::LiveBuffer& buffer = *sounds_.buffers()[i];
    const std::uint64_t written = buffer.written();
    const std::size_t room = capacity - forge_.offset;
    if (written == sentSamples_[i] || room <= EditorMessage::sizeOfSound(0)) continue;
    const std::size_t fitting = (room - EditorMessage::sizeOfSound(0)) / sizeof(float);
    // Where the newest do not fit, the oldest of them are left out: it is only for the eyes.
    const auto wanted = static_cast<std::size_t>(std::min(
        {written - sentSamples_[i], std::uint64_t{samples_.size()}, std::uint64_t{fitting}}));
    const std::size_t count = buffer.newest({samples_.data(), wanted});
    sentSamples_[i] = written;
    if (count == 0 || isStillSilent(i, count)) continue;
    lv2_atom_forge_frame_time(&forge_, 0);
    EditorMessage::forgeSound(forge_, urids_, i, {samples_.data(), count});
  }
}

bool EditorLink::isStillSilent(std::size_t sound, std::size_t count) {
  const auto begin = samples_.begin();
  const auto end = begin + static_cast<std::ptrdiff_t>(count);
  if (std::any_of(begin, end, [](float sample) { return sample != 0; })) {
    sentSilence_[sound] = 0;
    return false;
  }
  const std::size_t kept = sounds_.buffers()[sound]->newest(samples_);
  if (sentSilence_[sound] >= kept) return true;
  sentSilence_[sound] += count;
  std::fill(begin, end, 0.0f);
  return false;
}

void EditorLink::writeMidi(std::uint32_t capacity) {
  // The time, the atom's head and the bytes, padded.
  constexpr std::uint32_t eventSize = 24;
  for (std::size_t i = 0; i < midiCount_ && capacity - forge_.offset >= eventSize; ++i) {
    lv2_atom_forge_frame_time(&forge_, 0);
    lv2_atom_forge_atom(&forge_, midi_[i].size, urids_.midiEvent);
    lv2_atom_forge_write(&forge_, midi_[i].bytes, midi_[i].size);
  }
}

void EditorLink::writeState(std::uint32_t room) {
  Outgoing* entry = outgoing_.exchange(nullptr);
  if (!entry) return;
  if (EditorMessage::sizeOfState(entry->text.size()) <= room) {
    lv2_atom_forge_frame_time(&forge_, 0);
    EditorMessage::forgeState(forge_, urids_, entry->text);
  }
  // Another thread may take the whole list meanwhile, but only this one adds to it.
  entry->next = sent_.load();
  while (!sent_.compare_exchange_weak(entry->next, entry)) {
  }
}

void EditorLink::tellOwnValues(std::span<const std::int32_t> indices,
                               std::span<const float> values) {
  ownIndices_ = indices;
  ownValues_ = values;
  wantsOwnValues_.store(false, std::memory_order_relaxed);
}

void EditorLink::writeOwnValues(std::uint32_t room) {
  if (ownIndices_.empty()) return;
  if (EditorMessage::sizeOfLive(ownIndices_.size()) <= room) {
    lv2_atom_forge_frame_time(&forge_, 0);
    EditorMessage::forgeOwnValues(forge_, urids_, ownIndices_, ownValues_);
  } else {
    wantsOwnValues_.store(true, std::memory_order_relaxed);
  }
  ownIndices_ = {};
}

void EditorLink::writeLive(std::uint32_t room) {
  if (EditorMessage::sizeOfLive(values_.size()) > room) return;
  const auto& sources = live_.sources();
  for (std::size_t i = 0; i < sources.size(); ++i) {
    values_[i] = sources[i].value ? sources[i].value->load(std::memory_order_relaxed) : 0;
    modulating_[i] =
        sources[i].modulating && sources[i].modulating->load(std::memory_order_relaxed);
  }
  if (!liveIsStale_ && values_ == sentValues_ && modulating_ == sentModulating_) return;
  liveIsStale_ = false;
  sentValues_ = values_;
  sentModulating_ = modulating_;
  lv2_atom_forge_frame_time(&forge_, 0);
  EditorMessage::forgeLive(forge_, urids_, values_, modulating_);
}

}  // namespace lv2_backend
