#include "Orvane/ParameterConnection.h"

#include <utility>

namespace orvane {

ParameterConnection::ParameterConnection(platform::AudioUnit& audioUnit,
                                         std::function<void(platform::AUParameterAddress)> changed,
                                         std::function<void()> overflowed)
    : audioUnit_(&audioUnit),
      port_(
          capacity,
          [this, changed = std::move(changed)](platform::AUParameterAddress address) {
            if (audioUnit_) changed(address);
          },
          [this, overflowed = std::move(overflowed)] {
            if (audioUnit_) overflowed();
          }) {
  parameterObserverToken_ = audioUnit.parameterTree().tokenByAddingParameterObserver(
      [port = &port_](platform::AUParameterAddress address, float) { port->post(address); });
}

ParameterConnection::~ParameterConnection() {
  // Once the observer is removed nobody posts any more, and only then may the port go.
  if (auto* unit = audioUnit_.get())
    unit->parameterTree().removeParameterObserver(parameterObserverToken_);
}

}  // namespace orvane
