#pragma once

#include <algorithm>
#include <atomic>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <memory>

namespace foundation {

/// A bounded queue of numbers for any number of pushing threads and one that pops. Pushing takes no
/// lock and allocates nothing; each producer's messages come out in its order.
///
/// Every cell carries a sequence number: equal to a position, the cell is free for the push of that
/// position; one more, it holds that position's message.
class MessageRing {
 public:
  /// `capacity` is rounded up to a power of two, at least 2.
  explicit MessageRing(std::size_t capacity)
      : cells_(std::make_unique<Cell[]>(std::bit_ceil(std::max<std::size_t>(capacity, 2)))),
        mask_(std::bit_ceil(std::max<std::size_t>(capacity, 2)) - 1) {
    for (std::size_t i = 0; i <= mask_; ++i) cells_[i].sequence.store(i, std::memory_order_relaxed);
  }

  std::size_t capacity() const { return mask_ + 1; }

  /// False when every cell is taken.
  bool push(std::uint64_t message) noexcept {
    std::uint64_t position = tail_.load(std::memory_order_relaxed);
    for (;;) {
      Cell& cell = cells_[position & mask_];
      const std::uint64_t sequence = cell.sequence.load(std::memory_order_acquire);
      const auto distance = static_cast<std::int64_t>(sequence - position);
      if (distance < 0) return false;
      if (distance == 0 &&
          tail_.compare_exchange_weak(position, position + 1, std::memory_order_relaxed)) {
        cell.message = message;
        cell.sequence.store(position + 1, std::memory_order_release);
        return true;
      }
      // Another producer took the position.
      if (distance > 0) position = tail_.load(std::memory_order_relaxed);
    }
  }

  /// False when the next message has not been written yet.
  bool pop(std::uint64_t& message) noexcept {
    Cell& cell = cells_[head_ & mask_];
    if (cell.sequence.load(std::memory_order_acquire) != head_ + 1) return false;
    message = cell.message;
    cell.sequence.store(head_ + mask_ + 1, std::memory_order_release);
    ++head_;
    return true;
  }

  /// Position after the last push that has begun; for the popping thread.
  std::uint64_t pushed() const { return tail_.load(std::memory_order_acquire); }
  /// Position of the next pop; for the popping thread.
  std::uint64_t popped() const { return head_; }

 private:
  struct Cell {
    std::atomic<std::uint64_t> sequence{0};
    std::uint64_t message = 0;
  };

  // Producers and the consumer write to different cache lines.
  static constexpr std::size_t cacheLine = 64;
  std::unique_ptr<Cell[]> cells_;
  std::uint64_t mask_;
  alignas(cacheLine) std::atomic<std::uint64_t> tail_{0};
  alignas(cacheLine) std::uint64_t head_ = 0;
};

}  // namespace foundation
