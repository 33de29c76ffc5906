#pragma once

#include <memory>

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
  /// The user takes hold of the container's control, and lets go again.
  virtual void didBeginGesture(Container& container) = 0;
  virtual void didEndGesture(Container& container) = 0;
};

}  // namespace kestroui
