#pragma once

#include <utility>
#include <vector>

#include "KestroUI/OscilloscopeContainer.h"

namespace kestroui {

/// Several sounds as they are now, each in a colour of its own.
class MultiOscilloscopeContainer : public OscilloscopeContainer {
 public:
  void setBuffers(std::vector<const platform::LiveBuffer*> buffers) override {
    view().setBuffers(std::move(buffers));
  }
};

}  // namespace kestroui
