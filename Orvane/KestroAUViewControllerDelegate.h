#pragma once

namespace orvane {

/// A program that embeds the editor and wants to be reached by it. Held weakly.
class KestroAUViewControllerDelegate {
 public:
  virtual ~KestroAUViewControllerDelegate() = default;
};

}  // namespace orvane
