#pragma once

#include <lv2/atom/atom.h>

#include <cstdint>

#include "backends/lv2/Urids.h"
#include "platform/AudioUnit.h"

namespace lv2_backend {

/// The host's transport between its reports: it tells only what changed, and the beat goes on by
/// itself while it plays. Audio thread.
class Transport {
 public:
  Transport(const Urids& urids, double sampleRate) : urids_(urids), sampleRate_(sampleRate) {}

  const platform::HostTransport& now() const { return transport_; }
  /// A time:Position; what it does not name stays as it was.
  void read(const LV2_Atom_Object& position);
  void advance(std::uint32_t frames);

 private:
  const Urids& urids_;
  double sampleRate_;
  platform::HostTransport transport_;
  double beatsPerBar_ = 4;
};

}  // namespace lv2_backend
