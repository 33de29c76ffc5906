#pragma once

#include <lv2/atom/forge.h>
#include <lv2/ui/ui.h>
#include <lv2/urid/urid.h>

#include <cstdint>
#include <set>
#include <span>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "backends/lv2/EditorMessages.h"
#include "backends/lv2/MirrorAudioUnit.h"
#include "backends/lv2/PortLayout.h"
#include "backends/lv2/Urids.h"

namespace lv2_backend {

/// What an editor can ask of its host.
struct EditorHost {
  LV2UI_Write_Function write = nullptr;
  LV2UI_Controller controller = nullptr;
  const LV2_URID_Map* map = nullptr;
  /// Null when the host does not have it.
  const LV2UI_Touch* touch = nullptr;
};

/// Keeps the editor's audio unit and the host's ports the same, and carries the messages between
/// the editor and the sound. What the editor changes is written at once and in order; what the host
/// reports is never written back, and is ignored while the user holds the parameter: it could only
/// be an echo of a moment ago. Shows nothing, so it needs no display. User-interface thread only.
class PortMirror {
 public:
  /// `audioUnit` outlives the mirror.
  PortMirror(MirrorAudioUnit& audioUnit, const EditorHost& host);
  ~PortMirror();
  PortMirror(const PortMirror&) = delete;
  PortMirror& operator=(const PortMirror&) = delete;

  /// Tells the sound that the editor is there; the host has to have made it by now.
  void announce();
  /// Learns, and ends the gestures of what MIDI has moved; `now` is in seconds of any clock.
  void idle(double now);
  void portEvent(std::uint32_t port, std::uint32_t size, std::uint32_t format, const void* data);

 private:
  enum class Report { opened, closed, midiWanted, state };

  void writeParameter(platform::AUParameterAddress address, float value);
  void touch(platform::AUParameterAddress address, bool began);
  void send(Report report);
  void hear(std::span<const std::uint8_t> message);
  void takeOwnValues(const EditorMessage& message);
  void takeState(std::string_view state);

  MirrorAudioUnit& audioUnit_;
  EditorHost host_;
  Urids urids_;
  PortLayout layout_;
  LV2_Atom_Forge forge_{};
  std::vector<std::uint8_t> message_;
  std::unordered_map<platform::AUParameterAddress, std::uint32_t> portOfAddress_;
  std::set<platform::AUParameterAddress> held_;
  platform::AUParameterObserverToken token_ = nullptr;
  bool isAnnounced_ = false;
  /// The sound has told its state; before that the editor's would wipe it out.
  bool isAnswered_ = false;
  /// Something was bound before.
  bool isEdited_ = false;
  /// The sound's state is being set: the values that it brings are the sound's own.
  bool isListening_ = false;
  /// A MIDI message moves parameters, whose values are written afterwards.
  bool isHearing_ = false;
  std::vector<std::pair<platform::AUParameterAddress, float>> heard_;
  double now_ = 0;
};

}  // namespace lv2_backend
