#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

namespace halden {

/// A ring of past samples that can be read between two of them. Only `resize` allocates.
class DelayLine {
 public:
  /// Room for delays up to `maximumDelay` samples.
  void resize(std::size_t maximumDelay) {
    std::size_t size = 8;
    while (size < maximumDelay + 4) size *= 2;
    samples_.assign(size, 0.0f);
    mask_ = size - 1;
    write_ = 0;
  }
  void clear() { std::fill(samples_.begin(), samples_.end(), 0.0f); }

  void push(float sample) {
    write_ = (write_ + 1) & mask_;
    samples_[write_] = sample;
  }
  /// 0 is the sample pushed last.
  float tap(std::size_t delay) const { return samples_[(write_ - delay) & mask_]; }
  /// On a cubic curve through the four nearest samples; `delay` is at least 1.
  float read(float delay) const {
    const auto whole = static_cast<std::size_t>(delay);
    const float t = delay - static_cast<float>(whole);
    const float a = tap(whole - 1), b = tap(whole), c = tap(whole + 1), d = tap(whole + 2);
    const float slope = 0.5f * (c - a);
    const float bend = a - 2.5f * b + 2 * c - 0.5f * d;
    const float twist = 0.5f * (d - a) + 1.5f * (b - c);
    return ((twist * t + bend) * t + slope) * t + b;
  }

 private:
  std::vector<float> samples_;
  std::size_t mask_ = 0;
  std::size_t write_ = 0;
};

}  // namespace halden
