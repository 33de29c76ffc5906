#pragma once

#include <functional>
#include <memory>

#include "foundation/RealtimePort.h"
#include "platform/AudioUnit.h"

namespace orvane {

/// Brings every change of an audio unit's parameters to the user-interface thread, for as long as
/// it lives. Values may be set on any thread, the audio thread included; the audio unit may go
/// first. Made and destroyed on the user-interface thread.
class ParameterConnection {
 public:
  /// Changes that may wait before the road is full.
  static constexpr std::size_t capacity = 8192;

  /// `changed` is called once for every change, in order; after more changes than fit, `overflowed`
  /// is called once in place of those that were lost. Changes of an audio unit that is gone when
  /// they arrive are dropped. Both may destroy the connection.
  ParameterConnection(platform::AudioUnit& audioUnit,
                      std::function<void(platform::AUParameterAddress)> changed,
                      std::function<void()> overflowed);
  ~ParameterConnection();
  ParameterConnection(const ParameterConnection&) = delete;
  ParameterConnection& operator=(const ParameterConnection&) = delete;

  /// Null when it has gone.
  platform::AudioUnit* audioUnit() const { return audioUnit_.get(); }

 private:
  platform::Weak<platform::AudioUnit> audioUnit_;
  foundation::RealtimePort port_;
  platform::AUParameterObserverToken parameterObserverToken_ = nullptr;
};

}  // namespace orvane
