#include "foundation/MessageRing.h"

namespace foundation {

MessageRing::MessageRing(std::size_t capacity) {
  std::size_t rounded = 2;
  while (rounded < capacity) rounded *= 2;
  cells_ = std::make_unique<Cell[]>(rounded);
  mask_ = rounded - 1;
  for (std::size_t i = 0; i < rounded; ++i) cells_[i].sequence.store(i, std::memory_order_relaxed);
}

}  // namespace foundation
