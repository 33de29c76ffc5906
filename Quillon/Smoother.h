#pragma once

#include <cmath>
#include <cstdint>

namespace quillon {

/// Glides a value to its target over a fixed time, one step a sample, so that a moved parameter
/// does not click. It arrives exactly, and stays. Audio thread.
///
///     gain_.reset(sampleRate, 0.02, value(0));   // in allocateRenderResources
///     gain_.setTarget(value(0));                 // once a block
///     out = in * gain_.next();                   // each sample
class Smoother {
 public:
  /// `linear` moves in equal steps and takes exactly the given time; `exponential` covers the same
  /// share of the way in each step (the time is the one to 1 % of the way) and suits frequencies.
  enum class Shape { linear, exponential };

  explicit Smoother(Shape shape = Shape::linear) : shape_(shape) {}

  /// Stands at `value` from now on. `seconds` of 0 or less jumps to every target.
  void reset(double sampleRate, double seconds, float value) {
    const double steps = seconds > 0 && sampleRate > 0 ? sampleRate * seconds : 0;
    steps_ = steps < 1 ? 0 : static_cast<std::uint32_t>(std::lround(steps));
    coefficient_ = steps_ == 0 ? 1.0f : static_cast<float>(1 - std::exp(std::log(0.01) / steps_));
    snap(value);
  }

  void snap(float value) {
    current_ = target_ = value;
    remaining_ = 0;
  }

  /// A target that is no number is ignored.
  void setTarget(float target) {
    if (target == target_ || !std::isfinite(target)) return;
    if (steps_ == 0) return snap(target);
    target_ = target;
    // The share-wise glide never arrives by itself: after twice its time (0.01 % of the way left)
    // it is set on the target, before the rest becomes a denormal number.
    remaining_ = shape_ == Shape::linear ? steps_ : 2 * steps_;
    step_ = (target_ - current_) / static_cast<float>(steps_);
  }

  float next() {
    if (remaining_ == 0) return current_;
    if (--remaining_ == 0) return current_ = target_;
    current_ += shape_ == Shape::linear ? step_ : (target_ - current_) * coefficient_;
    return current_;
  }

  /// As many calls of next at once; returns the last value.
  float skip(std::uint32_t samples) {
    if (samples >= remaining_) {
      snap(target_);
      return current_;
    }
    remaining_ -= samples;
    if (shape_ == Shape::linear)
      current_ += step_ * static_cast<float>(samples);
    else
      current_ =
          target_ - (target_ - current_) * std::pow(1 - coefficient_, static_cast<float>(samples));
    return current_;
  }

  float current() const { return current_; }
  float target() const { return target_; }
  bool isMoving() const { return remaining_ > 0; }

 private:
  Shape shape_;
  std::uint32_t steps_ = 0;
  std::uint32_t remaining_ = 0;
  float coefficient_ = 1;
  float step_ = 0;
  float current_ = 0;
  float target_ = 0;
};

}  // namespace quillon
