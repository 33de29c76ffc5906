#include "KestroUI/DisplayContainers.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace kestroui {

void DisplayContainer::setDisplay(DisplayView& display) {
  display_ = &display;
  setShape(display);
}

void DisplayContainer::setParamKeys(std::vector<std::shared_ptr<ParamKey>> keys) {
  // First the display, which has to know the values that the base configures.
  display_->setKeys(keys);
  ShapeContainer::setParamKeys(std::move(keys));
}

void DisplayContainer::showValue(std::size_t index, float value, const std::string& text) {
  // The strips show texts all the time, other shapes only that of the handle in use.
  if (display_->text(index) != text) display_->setNeedsDisplay();
  ShapeContainer::showValue(index, value, text);
}

void DisplayContainer::setKeyRange(std::size_t index, float minimum, float maximum) {
  display_->setParameterRange(index, minimum, maximum);
  ShapeContainer::setKeyRange(index, minimum, maximum);
}

void DisplayContainer::setKeyStringValues(std::size_t index,
                                          const std::vector<std::string>& values) {
  display_->setValueNames(index, values);
  ShapeContainer::setKeyStringValues(index, values);
}

bool DisplayContainer::hasBadge(std::size_t index) const {
  return ShapeContainer::hasBadge(index) && !display_->isMeasuredValue(index);
}

void DisplayContainer::setColors(const std::vector<platform::Color>& colors) {
  ShapeContainer::setColors(colors);
  display_->setColors(colors);
}

void DisplayContainer::updateModulation() {
  ShapeContainer::updateModulation();
  for (std::size_t i = 0; i < paramKeys().size(); ++i) display_->setOutput(i, liveOutput(i));
}

const std::vector<std::string>& ThreeBandCompressorContainer::bandKeys() {
  static const std::vector<std::string> keys = {
      "LowThreshold",  "LowRatio",        "LowReduction",    "MidThreshold",
      "MidRatio",      "MidReduction",    "HighThreshold",   "HighRatio",
      "HighReduction", "LowMidFrequency", "MidHighFrequency"};
  return keys;
}

void OscilloscopeContainer::setBuffers(const std::vector<const platform::LiveBuffer*>& buffers) {
  const auto count = static_cast<std::ptrdiff_t>(std::min<std::size_t>(1, buffers.size()));
  view_.setBuffers({buffers.begin(), buffers.begin() + count});
}

void OscilloscopeContainer::updateModulation() {
  DisplayContainer::updateModulation();
  if (allowModulation) view_.read();
}

void RecordingContainer::setRecording(RecordingView& recording) {
  recording_ = &recording;
  setDisplay(recording);
}

void RecordingContainer::showData(std::shared_ptr<const platform::SampleData> data) {
  recording_->setData(std::move(data));
}

void RecordingContainer::updateModulation() {
  DisplayContainer::updateModulation();
  readData();
}

}  // namespace kestroui
