#include "examples/Halden/dsp/Envelope.h"

#include <cmath>

namespace halden {
namespace {

/// How far beyond its end a segment aims, as a share of the full level. Attacks bend a little;
/// falls are straight lines in decibels down to -70 dB.
constexpr double attackOvershoot = 0.3;
constexpr double fallOvershoot = 0.0003;
constexpr double fadeSeconds = 0.006;

}  // namespace

void Envelope::setSegment(Segment& segment, float seconds, double overshoot) const {
  if (seconds == segment.seconds) return;
  segment.seconds = seconds;
  const double samples = std::fmax(1.0, double{seconds} * sampleRate_);
  segment.share = 1 - std::exp(-std::log((1 + overshoot) / overshoot) / samples);
}

void Envelope::setTimes(const Times& times) {
  setSegment(attack_, times.attack, attackOvershoot);
  setSegment(decay_, times.decay, fallOvershoot);
  setSegment(release_, times.release, fallOvershoot);
  sustain_ = times.sustain;
}

void Envelope::fadeOut() {
  if (stage_ == Stage::idle || stage_ == Stage::fade) return;
  fadeStep_ = level_ / (fadeSeconds * sampleRate_);
  stage_ = Stage::fade;
}

void Envelope::reset() {
  level_ = 0;
  attack_.seconds = decay_.seconds = release_.seconds = -1;
  stage_ = Stage::idle;
}

float Envelope::process() {
  switch (stage_) {
    case Stage::idle:
      return 0;
    case Stage::attack:
      level_ += attack_.share * (1 + attackOvershoot - level_);
      if (level_ >= 1) {
        level_ = 1;
        stage_ = Stage::hold;
      }
      break;
    case Stage::hold:
      level_ += decay_.share * (sustain_ - level_);
      // An end to the approach, which would otherwise reach numbers that are slow to compute with.
      if (std::abs(sustain_ - level_) < 1e-6) level_ = sustain_;
      break;
    case Stage::release:
      level_ -= release_.share * (level_ + fallOvershoot);
      break;
    case Stage::fade:
      level_ -= fadeStep_;
      break;
  }
  if (isReleased() && level_ <= 0) {
    level_ = 0;
    stage_ = Stage::idle;
  }
  return level();
}

}  // namespace halden
