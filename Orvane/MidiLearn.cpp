#include "Orvane/MidiLearn.h"

#include <utility>

#include "Orvane/DSPParameters.h"
#include "Orvane/MidiScale.h"

namespace orvane {

using platform::PropertyList;
using Key = std::shared_ptr<kestroui::ParamKey>;

namespace {

constexpr std::uint8_t noteOff = 0x80, noteOn = 0x90, keyPressure = 0xa0, controlChange = 0xb0,
                       channelPressure = 0xd0, pitchBend = 0xe0;
/// From here on controllers are commands to the channel.
constexpr std::uint8_t firstModeMessage = 120;
/// Control changes from here to the double of it are the fine halves of those below it.
constexpr std::uint32_t firstFineControl = 32;
/// Data increment and decrement, and the numbers of registered and other parameters.
constexpr std::uint32_t firstParameterNumber = 96, lastParameterNumber = 101;

/// The entry of a host's state.
constexpr const char* stateEntry = "midiMap";

Key keyNamed(const std::string& key) { return std::make_shared<kestroui::ParamKey>(key); }

bool isNumbered(int kind) { return kind < channelPressure; }

}  // namespace

MidiLearn::MidiLearn(platform::AudioUnit& audioUnit)
    : targetCount_(audioUnit.parametersKeys().size()),
      targets_(std::make_unique<Target[]>(targetCount_)) {
  std::size_t index = 0;
  for (const std::string& key : audioUnit.parametersKeys()) {
    Target& next = targets_[index++];
    next.parameter = audioUnit.parameter(key);
    if (next.parameter) targetOfKey_[key] = &next;
  }
}

MidiLearn::~MidiLearn() {
  for (std::size_t i = 0; i < targetCount_; ++i)
    if (targets_[i].heldUntil) targets_[i].parameter->endGesture();
}

// Editor

void MidiLearn::setEditor(KestroAUViewController* editor) {
  if (editor_ == editor) return;
  setLearning(false);
  setWaiting(nullptr);
  editor_ = editor;
  if (!editor) return;
  editor->hostDelegate = this;
  for (const auto& [key, message] : bindings_) show(key, message);
}

bool MidiLearn::isLearning() const { return editor_ && editor_->midiMappingEnabled(); }

void MidiLearn::setLearning(bool learning) {
  if (editor_) editor_->setMidiMappingEnabled(learning);
}

void MidiLearn::midiMappingDidChange() {
  setWaiting(nullptr);
  if (const auto tell = learningChanged) tell();
}

void MidiLearn::setWaiting(Key key) {
  // What was heard before was not meant for this one.
  captured_.store(0);
  waiting_ = std::move(key);
  const bool waits = waiting_ != nullptr;
  if (capturing_.exchange(waits) == waits) return;
  // A copy: what it does may replace it.
  if (const auto tell = waitingChanged) tell();
}

void MidiLearn::didSelectMidiMap(const Key& key) {
  if (isLearning()) setWaiting(key);
}

void MidiLearn::deleteMidiMap(const Key& key) { remove(key->key()); }

void MidiLearn::show(const std::string& key, const std::optional<Message>& message) {
  if (editor_) editor_->setMap(message, keyNamed(key));
}

// Bindings

MidiLearn::Target* MidiLearn::target(const std::string& key) {
  const auto found = targetOfKey_.find(DSPParameters::parameterKey(key));
  return found == targetOfKey_.end() ? nullptr : found->second;
}

bool MidiLearn::bind(const std::string& key, const Message& message) {
  const std::optional<Heard> heard = hear(message);
  Target* const bound = target(key);
  if (!heard || !bound) return false;
  removeAliases(key, *bound);
  bound->code.store(heard->code);
  Message& before = bindings_[key];
  const bool isNew = before != message;
  before = message;
  show(key, message);
  if (isNew) changed();
  return true;
}

void MidiLearn::removeAliases(const std::string& key, const Target& bound) {
  std::erase_if(bindings_, [&](const auto& other) {
    if (other.first == key || target(other.first) != &bound) return false;
    show(other.first, std::nullopt);
    return true;
  });
}

void MidiLearn::remove(const std::string& key) {
  if (Target* const bound = target(key)) bound->code.store(0);
  show(key, std::nullopt);
  if (bindings_.erase(key)) changed();
}

void MidiLearn::removeAll() {
  for (std::size_t i = 0; i < targetCount_; ++i) targets_[i].code.store(0);
  if (editor_) editor_->removeAllMap();
  if (bindings_.empty()) return;
  bindings_.clear();
  changed();
}

void MidiLearn::changed() {
  // A copy: what it does may replace it.
  if (const auto tell = bindingsChanged) tell();
}

PropertyList MidiLearn::state() const {
  PropertyList::Dictionary state;
  for (const auto& [key, message] : bindings_) {
    PropertyList::Array bytes;
    for (const std::uint8_t byte : message) bytes.emplace_back(static_cast<int>(byte));
    state[key] = std::move(bytes);
  }
  return state;
}

void MidiLearn::setState(const PropertyList* state) {
  const auto tell = std::exchange(bindingsChanged, nullptr);
  removeAll();
  const auto* entries = state ? state->as<PropertyList::Dictionary>() : nullptr;
  if (entries)
    for (const auto& [key, value] : *entries) {
      const auto* bytes = value.as<PropertyList::Array>();
      if (!bytes) continue;
      Message message;
      for (const PropertyList& byte : *bytes)
        if (const auto* number = byte.as<std::int64_t>(); number && *number >= 0 && *number < 256)
          message.push_back(static_cast<std::uint8_t>(*number));
      if (message.size() == bytes->size()) bind(key, message);
    }
  bindingsChanged = tell;
}

void MidiLearn::addTo(PropertyList& hostState) const {
  auto* entries = hostState.as<PropertyList::Dictionary>();
  if (entries && !bindings_.empty()) (*entries)[stateEntry] = state();
}

void MidiLearn::takeFrom(PropertyList& hostState) {
  auto* entries = hostState.as<PropertyList::Dictionary>();
  if (!entries) return;
  if (entries->erase(presetEntry) == 0) setState(hostState.find(stateEntry));
  entries->erase(stateEntry);
}

// MIDI

std::optional<MidiLearn::Heard> MidiLearn::hear(std::span<const std::uint8_t> message) {
  if (message.empty()) return std::nullopt;
  const std::uint8_t status = message[0];
  const auto byteAt = [&](std::size_t i) -> std::uint8_t {
    return i < message.size() ? message[i] & 0x7f : 0;
  };
  const int kind = status & 0xf0;
  if (isNumbered(kind) && message.size() < 2) return std::nullopt;
  const auto code = [&](int first, int number) {
    return static_cast<Code>((first | (status & 0x0f)) << 8 | number);
  };
  switch (kind) {
    case noteOff:
      return Heard{code(noteOn, byteAt(1)), 0};
    case noteOn:
      return Heard{code(noteOn, byteAt(1)), byteAt(2), byteAt(2) > 0};
    case controlChange:
      if (byteAt(1) >= firstModeMessage) return std::nullopt;
      return Heard{code(kind, byteAt(1)), byteAt(2)};
    case keyPressure:
      return Heard{code(kind, byteAt(1)), byteAt(2)};
    case channelPressure:
      return Heard{code(kind, 0), byteAt(1)};
    case pitchBend:
      return Heard{code(kind, 0), byteAt(2)};
    default:
      return std::nullopt;
  }
}

bool MidiLearn::receive(std::span<const std::uint8_t> message) {
  const std::optional<Heard> heard = hear(message);
  if (!heard) return false;
  if (capturing_.load(std::memory_order_acquire)) {
    const bool isControl = (message[0] & 0xf0) == controlChange;
    const bool isKept = isControl || heard->isNoteOn;
    if (isKept) capture(heard->code);
    return isKept;
  }
  bool hasMoved = false;
  for (std::size_t i = 0; i < targetCount_; ++i) {
    Target& bound = targets_[i];
    if (bound.code.load(std::memory_order_relaxed) != heard->code) continue;
    // A pad that is hit softly switches all the same.
    const bool switches = bound.parameter->unit() == platform::AudioUnitParameterUnit::boolean;
    const std::uint8_t value = heard->isNoteOn && switches ? 127 : heard->value;
    bound.parameter->setValue(midiParameterValue(*bound.parameter, value));
    bound.hasMoved.store(true, std::memory_order_release);
    hasMoved = true;
  }
  return hasMoved;
}

void MidiLearn::capture(Code code) {
  const bool isControl = (code >> 8 & 0xf0) == controlChange;
  const Code number = code & 0x7f;
  // These name the parameter whose value follows.
  if (isControl && number >= firstParameterNumber && number <= lastParameterNumber) return;
  Code kept = captured_.load(std::memory_order_relaxed);
  do {
    // The first counts, unless it was the fine half of this one.
    const bool isCoarse = isControl && number < firstFineControl && kept == code + firstFineControl;
    if (kept != 0 && !isCoarse) return;
  } while (!captured_.compare_exchange_weak(kept, code, std::memory_order_acq_rel));
}

void MidiLearn::pollGestures(double now) {
  for (std::size_t i = 0; i < targetCount_; ++i) {
    Target& bound = targets_[i];
    if (bound.hasMoved.load(std::memory_order_relaxed) && bound.hasMoved.exchange(false)) {
      if (!bound.heldUntil) bound.parameter->beginGesture();
      bound.heldUntil = now + quietTime;
    } else if (bound.heldUntil && now >= *bound.heldUntil) {
      bound.heldUntil.reset();
      bound.parameter->endGesture();
    }
  }
}

void MidiLearn::poll(double now) {
  pollGestures(now);
  // The editor may have gone without a word.
  if (waiting_ && !isLearning()) setWaiting(nullptr);
  const Code code = captured_.exchange(0, std::memory_order_acq_rel);
  if (code == 0 || !waiting_) return;
  const Key key = waiting_;
  setWaiting(nullptr);
  bind(key->key(), {static_cast<std::uint8_t>(code >> 8), static_cast<std::uint8_t>(code)});
}

}  // namespace orvane
