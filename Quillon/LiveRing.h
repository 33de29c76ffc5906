#pragma once

#include <algorithm>
#include <atomic>
#include <bit>
#include <vector>

#include "platform/LiveBuffer.h"

namespace quillon {

/// The last samples of a sound in a ring. One thread, the audio thread, appends; any other may read
/// at the same time without a lock.
class LiveRing final : public platform::LiveBuffer {
 public:
  /// Keeps at least `capacity` samples.
  explicit LiveRing(std::size_t capacity)
      : samples_(std::bit_ceil(std::max<std::size_t>(capacity, 1))) {}

  /// Audio thread.
  void append(std::span<const float> samples) {
    const std::uint64_t from = written_.load(std::memory_order_relaxed);
    for (std::size_t i = 0; i < samples.size(); ++i)
      samples_[(from + i) & mask()].store(samples[i], std::memory_order_relaxed);
    written_.store(from + samples.size(), std::memory_order_release);
  }
  void append(float sample) { append(std::span<const float>(&sample, 1)); }

  std::uint64_t written() const override { return written_.load(std::memory_order_acquire); }
  std::size_t newest(std::span<float> samples) const override {
    const std::uint64_t end = written();
    const auto count = static_cast<std::size_t>(
        std::min({std::uint64_t{samples.size()}, std::uint64_t{samples_.size()}, end}));
    for (std::size_t i = 0; i < count; ++i)
      samples[i] = samples_[(end - count + i) & mask()].load(std::memory_order_relaxed);
    return count;
  }

 private:
  std::size_t mask() const { return samples_.size() - 1; }

  std::vector<std::atomic<float>> samples_;
  std::atomic<std::uint64_t> written_{0};
};

}  // namespace quillon
