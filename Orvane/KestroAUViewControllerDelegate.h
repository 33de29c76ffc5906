#pragma once

#include <memory>

namespace kestroui {
class ParamKey;
}

namespace orvane {

/// A program that embeds the editor and wants to be reached by it: it captures the MIDI messages
/// that move parameters and keeps the bindings. Held weakly. User-interface thread only.
class KestroAUViewControllerDelegate {
 public:
  virtual ~KestroAUViewControllerDelegate() = default;

  /// The user has selected the control of `key`, never null, in learn mode. The next message is to
  /// become its binding; the host answers with the controller's setMap.
  virtual void didSelectMidiMap(const std::shared_ptr<kestroui::ParamKey>& key) = 0;
  /// The user wants the binding of `key`, never null, deleted. The host forgets it and answers with
  /// the controller's removeMap or update.
  virtual void deleteMidiMap(const std::shared_ptr<kestroui::ParamKey>& key) = 0;
  /// Learn mode has begun or ended, whoever did it.
  virtual void midiMappingDidChange() {}
};

}  // namespace orvane
