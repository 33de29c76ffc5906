#include "Orvane/HeldParameters.h"

#include <algorithm>
#include <utility>

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
  // Whoever observes the end of a gesture may let go of others, or destroy this.
  std::vector<platform::AUParameter*> held = std::exchange(held_, {});
  const platform::Weak<platform::AudioUnit> unit = audioUnit_;
  std::sort(held.begin(), held.end());
  held.erase(std::unique(held.begin(), held.end()), held.end());
  for (platform::AUParameter* parameter : held)
    if (unit) parameter->endGesture();
}

}  // namespace orvane
