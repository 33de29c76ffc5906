#pragma once

#include <string>

#include "platform/AUParameter.h"

namespace orvane {

/// Wants to know the new values of a parameter. Registered with DSPParameters::setObserver.
class DSPParameterObserver {
 public:
  virtual ~DSPParameterObserver() = default;

  /// User-interface thread, after the value has changed.
  virtual void update(platform::AUParameter& parameter, const std::string& key) = 0;
};

}  // namespace orvane
