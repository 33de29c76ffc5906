#include "Orvane/HeldParameters.h"

#include <algorithm>

namespace orvane {

void HeldParameters::setAudioUnit(platform::AudioUnit* audioUnit) {
  releaseAll();
  audioUnit_ = audioUnit;
}

void HeldParameters::hold(platform::AUParameter& parameter) {
  const bool first = std::find(held_.begin(), held_.end(), &parameter) == held_.end();
  held_.push_back(&parameter);
  if (first) parameter.beginGesture();
}

void HeldParameters::release(platform::AUParameter& parameter) {
  const auto entry = std::find(held_.begin(), held_.end(), &parameter);
  if (entry == held_.end()) return;
  held_.erase(entry);
  if (std::find(held_.begin(), held_.end(), &parameter) == held_.end()) parameter.endGesture();
}

void HeldParameters::releaseAll() {
  if (!audioUnit_) {
    // Its parameters went with it.
    held_.clear();
    return;
  }
  while (!held_.empty()) {
    platform::AUParameter& parameter = *held_.back();
    held_.erase(std::remove(held_.begin(), held_.end(), &parameter), held_.end());
    parameter.endGesture();
  }
}

}  // namespace orvane
