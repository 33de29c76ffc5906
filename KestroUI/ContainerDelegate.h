#pragma once

#include <memory>
#include <vector>

namespace kestroui {

class Container;
class ParamKey;

/// What a container tells its owner beside the value-changed event. Held weakly; any callback may
/// destroy the container. User-interface thread only.
class ContainerDelegate {
 public:
  virtual ~ContainerDelegate() = default;

  /// A double tap on the control of `key`; null when the container has no key.
  virtual void didDoubleTap(const std::shared_ptr<ParamKey>& key) = 0;
  /// The user takes hold of what moves `keys`, and lets go of them again. Kinds with several
  /// handles tell of each on its own.
  virtual void didBeginGesture(Container& container,
                               const std::vector<std::shared_ptr<ParamKey>>& keys) = 0;
  virtual void didEndGesture(Container& container,
                             const std::vector<std::shared_ptr<ParamKey>>& keys) = 0;
  /// In learn mode the user selects the control of `key`, which `container` holds, to be bound to
  /// the next MIDI message.
  virtual void didSelectMidiMap(const std::shared_ptr<ParamKey>& /*key*/,
                                Container* /*container*/) {}
  /// The user wants the binding of `key` gone.
  virtual void wantToDeleteMidiMap(const std::shared_ptr<ParamKey>& /*key*/) {}
};

}  // namespace kestroui
