#pragma once

#include <lv2/atom/atom.h>
#include <lv2/atom/forge.h>
#include <lv2/atom/util.h>
#include <lv2/buf-size/buf-size.h>
#include <lv2/core/lv2.h>
#include <lv2/midi/midi.h>
#include <lv2/options/options.h>
#include <lv2/state/state.h>
#include <lv2/time/time.h>
#include <lv2/urid/urid.h>
#include <lv2/worker/worker.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <functional>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace support {

/// What every LV2 host has: numbers for addresses, options, a worker, and a place for state. The
/// worker's requests wait until `runWorker`.
class Lv2Features {
 public:
  explicit Lv2Features(std::int32_t maximumFrames = 64) : maximumFrames_(maximumFrames) {
    options_[0] = {LV2_OPTIONS_INSTANCE,
                   0,
                   id(LV2_BUF_SIZE__maxBlockLength),
                   sizeof(maximumFrames_),
                   id(LV2_ATOM__Int),
                   &maximumFrames_};
    options_[1] = {LV2_OPTIONS_INSTANCE, 0, 0, 0, 0, nullptr};
  }
  Lv2Features(const Lv2Features&) = delete;
  Lv2Features& operator=(const Lv2Features&) = delete;

  LV2_URID id(const std::string& uri) {
    return ids_.emplace(uri, static_cast<LV2_URID>(ids_.size() + 1)).first->second;
  }
  LV2_URID_Map* map() { return &map_; }
  const LV2_Feature* const* list() const { return list_; }
  static const LV2_Feature* const* none() {
    static const LV2_Feature* const empty[] = {nullptr};
    return empty;
  }

  std::vector<std::string> requests;
  /// The worker's queue is full.
  bool refusesWork = false;

 private:
  static LV2_URID mapUri(LV2_URID_Map_Handle handle, const char* uri) {
    return static_cast<Lv2Features*>(handle)->id(uri);
  }
  static LV2_Worker_Status scheduleWork(LV2_Worker_Schedule_Handle handle, std::uint32_t size,
                                        const void* data) {
    auto& features = *static_cast<Lv2Features*>(handle);
    if (features.refusesWork) return LV2_WORKER_ERR_NO_SPACE;
    features.requests.emplace_back(static_cast<const char*>(data), size);
    return LV2_WORKER_SUCCESS;
  }

  std::map<std::string, LV2_URID> ids_;
  std::int32_t maximumFrames_;
  LV2_Options_Option options_[2];
  LV2_URID_Map map_{this, mapUri};
  LV2_Worker_Schedule schedule_{this, scheduleWork};
  LV2_Feature mapFeature_{LV2_URID__map, &map_};
  LV2_Feature optionsFeature_{LV2_OPTIONS__options, options_};
  LV2_Feature workerFeature_{LV2_WORKER__schedule, &schedule_};
  const LV2_Feature* list_[4] = {&mapFeature_, &optionsFeature_, &workerFeature_, nullptr};
};

/// A sequence of events in a buffer of its own.
class EventBuffer {
 public:
  explicit EventBuffer(Lv2Features& features) : features_(features), bytes_(65536 / 8) {
    lv2_atom_forge_init(&forge_, features.map());
    clear();
  }

  LV2_Atom_Sequence* sequence() { return reinterpret_cast<LV2_Atom_Sequence*>(bytes_.data()); }
  LV2_Atom_Forge& forge() { return forge_; }
  /// An empty sequence, to which events are appended in their order.
  void clear() {
    lv2_atom_forge_set_buffer(&forge_, reinterpret_cast<std::uint8_t*>(bytes_.data()),
                              bytes_.size() * 8);
    lv2_atom_forge_sequence_head(&forge_, &frame_, 0);
  }
  /// Room for a plug-in to write into.
  void offer(std::uint32_t room) { sequence()->atom = {room, 0}; }
  void midi(std::int64_t frame, std::vector<std::uint8_t> message) {
    lv2_atom_forge_frame_time(&forge_, frame);
    lv2_atom_forge_atom(&forge_, static_cast<std::uint32_t>(message.size()),
                        features_.id(LV2_MIDI__MidiEvent));
    lv2_atom_forge_write(&forge_, message.data(), static_cast<std::uint32_t>(message.size()));
  }
  void position(std::int64_t frame, float speed, double beat, float tempo) {
    LV2_Atom_Forge_Frame object;
    lv2_atom_forge_frame_time(&forge_, frame);
    lv2_atom_forge_object(&forge_, &object, 0, features_.id(LV2_TIME__Position));
    lv2_atom_forge_key(&forge_, features_.id(LV2_TIME__speed));
    lv2_atom_forge_float(&forge_, speed);
    lv2_atom_forge_key(&forge_, features_.id(LV2_TIME__beat));
    lv2_atom_forge_double(&forge_, beat);
    lv2_atom_forge_key(&forge_, features_.id(LV2_TIME__beatsPerMinute));
    lv2_atom_forge_float(&forge_, tempo);
    lv2_atom_forge_pop(&forge_, &object);
  }
  /// The same by bars, as hosts say it that count no beats.
  void bar(std::int64_t frame, std::int64_t bar, float beatInBar, float beatsPerBar) {
    LV2_Atom_Forge_Frame object;
    lv2_atom_forge_frame_time(&forge_, frame);
    lv2_atom_forge_object(&forge_, &object, 0, features_.id(LV2_TIME__Position));
    lv2_atom_forge_key(&forge_, features_.id(LV2_TIME__bar));
    lv2_atom_forge_long(&forge_, bar);
    lv2_atom_forge_key(&forge_, features_.id(LV2_TIME__barBeat));
    lv2_atom_forge_float(&forge_, beatInBar);
    lv2_atom_forge_key(&forge_, features_.id(LV2_TIME__beatsPerBar));
    lv2_atom_forge_float(&forge_, beatsPerBar);
    lv2_atom_forge_pop(&forge_, &object);
  }
  /// A whole atom, made elsewhere.
  void atom(std::int64_t frame, const LV2_Atom* atom) {
    lv2_atom_forge_frame_time(&forge_, frame);
    lv2_atom_forge_raw(&forge_, atom, lv2_atom_total_size(atom));
    lv2_atom_forge_pad(&forge_, lv2_atom_total_size(atom));
  }
  std::vector<const LV2_Atom*> events() {
    std::vector<const LV2_Atom*> atoms;
    LV2_ATOM_SEQUENCE_FOREACH(sequence(), event) atoms.push_back(&event->body);
    return atoms;
  }

 private:
  Lv2Features& features_;
  std::vector<std::uint64_t> bytes_;
  LV2_Atom_Forge forge_{};
  LV2_Atom_Forge_Frame frame_{};
};

/// A running instance with all its ports connected.
class Lv2Instance {
 public:
  /// `count` ports; the first two are outputs of sound, the others as in PortLayout.
  Lv2Instance(const LV2_Descriptor& descriptor, Lv2Features& features, std::uint32_t count)
      : features(features),
        input(features),
        output(features),
        controls(count),
        descriptor_(descriptor) {
    handle_ = descriptor.instantiate(&descriptor, 48000, "/bundle/", features.list());
    if (!handle_) throw std::runtime_error("instantiate has failed");
    for (std::uint32_t i = 4; i < count; ++i) descriptor.connect_port(handle_, i, &controls[i]);
    descriptor.connect_port(handle_, 2, input.sequence());
    descriptor.connect_port(handle_, 3, output.sequence());
  }
  ~Lv2Instance() { descriptor_.cleanup(handle_); }
  Lv2Instance(const Lv2Instance&) = delete;
  Lv2Instance& operator=(const Lv2Instance&) = delete;

  void activate() { descriptor_.activate(handle_); }
  /// One cycle with the events in `input`, which it clears.
  void run(std::uint32_t frames) {
    left.assign(frames, -1);
    right.assign(frames, -1);
    descriptor_.connect_port(handle_, 0, left.data());
    descriptor_.connect_port(handle_, 1, right.data());
    output.offer(room);
    descriptor_.run(handle_, frames);
    input.clear();
  }
  void runWorker() {
    const auto* worker =
        static_cast<const LV2_Worker_Interface*>(descriptor_.extension_data(LV2_WORKER__interface));
    for (const std::string& request : std::exchange(features.requests, {}))
      worker->work(handle_, nullptr, nullptr, static_cast<std::uint32_t>(request.size()),
                   request.data());
  }
  /// The text of the state's one property.
  std::string save() {
    std::string text;
    stateInterface().save(handle_, storeText, &text, LV2_STATE_IS_POD, Lv2Features::none());
    return text;
  }
  /// An empty text stands for a state that has nothing of ours.
  LV2_State_Status restore(const std::string& text, const char* type = LV2_ATOM__String) {
    Stored stored{text, features.id(type)};
    return stateInterface().restore(handle_, retrieveText, &stored, 0, Lv2Features::none());
  }

  Lv2Features& features;
  EventBuffer input;
  EventBuffer output;
  /// By port.
  std::vector<float> controls;
  std::vector<float> left, right;
  /// Bytes for what the plug-in tells its editor in one cycle.
  std::uint32_t room = 65536 - sizeof(LV2_Atom);

 private:
  struct Stored {
    std::string text;
    LV2_URID type;
  };

  static LV2_State_Status storeText(LV2_State_Handle handle, std::uint32_t, const void* value,
                                    std::size_t size, std::uint32_t, std::uint32_t) {
    static_cast<std::string*>(handle)->assign(static_cast<const char*>(value), size - 1);
    return LV2_STATE_SUCCESS;
  }
  static const void* retrieveText(LV2_State_Handle handle, std::uint32_t, std::size_t* size,
                                  std::uint32_t* type, std::uint32_t* flags) {
    const auto& stored = *static_cast<const Stored*>(handle);
    if (stored.text.empty()) return nullptr;
    *size = stored.text.size() + 1;
    *type = stored.type;
    *flags = LV2_STATE_IS_POD;
    return stored.text.c_str();
  }
  const LV2_State_Interface& stateInterface() {
    return *static_cast<const LV2_State_Interface*>(
        descriptor_.extension_data(LV2_STATE__interface));
  }

  const LV2_Descriptor& descriptor_;
  LV2_Handle handle_ = nullptr;
};

}  // namespace support
