#include "examples/Halden/MonitorContainer.h"

#include <utility>

namespace halden {

MonitorContainer::MonitorContainer() {
  setDisplayTitle(false);
  monitor_.setHidden(true);
  monitor_.setUserInteractionEnabled(false);
  addSubview(monitor_);
}

void MonitorContainer::setMode(MonitorMode mode) {
  mode_ = mode;
  monitor_.setMode(mode);
  monitor_.setHidden(mode == MonitorMode::scope);
  view().setHidden(mode != MonitorMode::scope);
  setNeedsDisplay();
}

void MonitorContainer::setBuffers(const std::vector<const platform::LiveBuffer*>& buffers) {
  const auto buffer = [&](std::size_t i) { return i < buffers.size() ? buffers[i] : nullptr; };
  monitor_.setBuffers(buffer(0), buffer(1));
  OscilloscopeContainer::setBuffers(buffers);
}

void MonitorContainer::updateModulation() {
  if (mode_ == MonitorMode::scope)
    OscilloscopeContainer::updateModulation();
  else if (allowModulation)
    monitor_.read(sampleRate());
}

void MonitorContainer::draw(const platform::Rect& rect) {
  OscilloscopeContainer::draw(rect);
  monitor_.setAccentColor(accent());
  monitor_.setFrame(view().frame());
}

}  // namespace halden
