#include "examples/Halden/dsp/Envelope.h"

#include <cmath>

namespace halden {
namespace {

/// How far beyond its end a segment aims, as a share of the full level. Attacks bend a little;
/// falls are straight lines in decibels down to -70 dB.
constexpr float attackOvershoot = 0.3f;
constexpr float fallOvershoot = 0.0003f;
constexpr float fadeSeconds = 0.006f;

}  // namespace

void Envelope::setSegment(Segment& segment, float seconds, float overshoot) const {
  if (seconds == segment.seconds) return;
  segment.seconds = seconds;
  const float samples = std::fmax(1.0f, seconds * sampleRate_);
  segment.share = 1 - std::exp(-std::log((1 + overshoot) / overshoot) / samples);
}

void Envelope::setTimes(const Times& times) {
  setSegment(attack_, times.attack, attackOvershoot);
  setSegment(decay_, times.decay, fallOvershoot);
  setSegment(release_, times.release, fallOvershoot);
  setSegment(fade_, fadeSeconds, fallOvershoot);
  sustain_ = times.sustain;
}

void Envelope::fadeOut() {
  if (stage_ != Stage::idle) stage_ = Stage::fade;
}

void Envelope::reset() {
  level_ = 0;
  attack_.seconds = decay_.seconds = release_.seconds = fade_.seconds = -1;
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
      if (std::abs(sustain_ - level_) < 1e-6f) level_ = sustain_;
      break;
    case Stage::release:
    case Stage::fade: {
      const float share = stage_ == Stage::release ? release_.share : fade_.share;
      level_ -= share * (level_ + fallOvershoot);
      if (level_ <= 0) {
        level_ = 0;
        stage_ = Stage::idle;
      }
      break;
    }
  }
  return level_;
}

}  // namespace halden
