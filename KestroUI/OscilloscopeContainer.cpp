#include "KestroUI/OscilloscopeContainer.h"

#include <utility>

namespace kestroui {

void OscilloscopeContainer::setBuffers(std::vector<const platform::LiveBuffer*> buffers) {
  if (buffers.size() > 1) buffers.erase(buffers.begin() + 1, buffers.end());
  view_.setBuffers(std::move(buffers));
}

void OscilloscopeContainer::updateModulation() {
  DisplayContainer::updateModulation();
  if (allowModulation) view_.read();
}

}  // namespace kestroui
