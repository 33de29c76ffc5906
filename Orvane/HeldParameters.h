#pragma once

#include <vector>

#include "platform/AudioUnit.h"

namespace orvane {

/// The parameters that the user has hold of, so that hosts get one begin and one end of each
/// gesture: also when two controls of one parameter are moved at once, and when the editor goes in
/// the middle of a gesture. User-interface thread only.
class HeldParameters {
 public:
  HeldParameters() = default;
  ~HeldParameters() { releaseAll(); }
  HeldParameters(const HeldParameters&) = delete;
  HeldParameters& operator=(const HeldParameters&) = delete;

  /// Lets everything go; what is held from now on belongs to `audioUnit`.
  void setAudioUnit(platform::AudioUnit* audioUnit);
  void hold(platform::AUParameter& parameter);
  /// Does nothing for a parameter that is not held.
  void release(platform::AUParameter& parameter);
  void releaseAll();

 private:
  platform::Weak<platform::AudioUnit> audioUnit_;
  /// One entry for each hold.
  std::vector<platform::AUParameter*> held_;
};

}  // namespace orvane
