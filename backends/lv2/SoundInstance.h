#pragma once

#include <lv2/atom/atom.h>
#include <lv2/core/lv2.h>
#include <lv2/state/state.h>
#include <lv2/urid/urid.h>

#include <atomic>
#include <cstdint>
#include <memory>
#include <mutex>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "Orvane/MidiLearn.h"
#include "Orvane/PluginEntry.h"
#include "backends/lv2/BlockRenderer.h"
#include "backends/lv2/EditorLink.h"
#include "backends/lv2/PortLayout.h"
#include "backends/lv2/Urids.h"
#include "platform/AudioUnit.h"

namespace lv2_backend {

/// One instance of a plug-in's sound in an LV2 host.
///
/// The host owns the values of control ports, and there is no way to tell it that the sound has
/// changed one. So a parameter follows its port whenever the port's value changes, and all follow
/// again after a state was set, whichever of the two the host sets first. What an editor changes
/// reaches the ports through the host, not through the sound. Only what MIDI moves is moved by the
/// sound itself, at once; an open editor moves the port after it, and what comes back by the port
/// within half a second is that echo, which never takes the sound back. Without an editor the port
/// stays behind; the state then says what it held, so that a session that restores both hears what
/// was saved, and the next editor moves the port. The state
/// holds the values too, as in any other format, but beside them it has what no port can carry (the
/// name of the preset, what a newer version has stored), and that is what it is for here.
///
/// Hosts call `run` on the audio thread and all else on others, the state also while it runs.
class SoundInstance {
 public:
  /// Throws std::runtime_error when the host lacks a required feature.
  SoundInstance(const orvane::PluginEntry& entry, double sampleRate,
                const LV2_Feature* const* features);

  void connectPort(std::uint32_t port, void* buffer);
  void activate();
  void run(std::uint32_t frames);
  void deactivate();

  LV2_State_Status save(LV2_State_Store_Function store, LV2_State_Handle handle);
  LV2_State_Status restore(LV2_State_Retrieve_Function retrieve, LV2_State_Handle handle);
  void work(std::string_view request) { link_.work(request); }

  platform::AudioUnit& audioUnit() { return *audioUnit_; }

 private:
  void readControls();
  void noteMoved();
  void tellOwnValues();
  void writeControls();
  void readEvents();

  std::unique_ptr<platform::AudioUnit> audioUnit_;
  /// Moves what is bound; the editor's own learns.
  orvane::MidiLearn midiLearn_{*audioUnit_};
  LV2_URID_Map map_;
  Urids urids_;
  double sampleRate_;
  PortLayout layout_;
  /// Held for whatever the audio unit wants on one thread at a time; never by the audio thread.
  std::mutex access_;
  BlockRenderer renderer_;
  EditorLink link_;

  const LV2_Atom_Sequence* control_ = nullptr;
  LV2_Atom_Sequence* notify_ = nullptr;
  float* latencyPort_ = nullptr;
  const float* enabledPort_ = nullptr;
  float latency_ = 0;
  std::vector<float*> controls_;
  /// What each port held in the last cycle; not a number before the first.
  std::vector<std::atomic<float>> lastValues_;
  /// Whether the parameter has a value that its port does not: MIDI or a state has set it since.
  std::vector<std::atomic<bool>> isOwn_;
  /// What the ports of such parameters held when the restored state was saved; else not a number.
  std::vector<std::atomic<float>> restoredPorts_;
  std::atomic<bool> isRestored_{false};
  std::vector<std::int32_t> ownIndices_;
  std::vector<float> ownValues_;
  /// The frame until which a port only echoes what MIDI has done, by parameter.
  std::vector<std::uint64_t> echoesUntil_;
  std::unordered_map<const platform::AUParameter*, std::size_t> indexOf_;
  std::uint64_t frame_ = 0;
};

}  // namespace lv2_backend
