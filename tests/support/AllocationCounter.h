#pragma once

#include <cstddef>

namespace support {

/// Counts what this thread allocates while it lives. A test that includes it adds
/// support/AllocationCounter.cpp to its sources, which replaces the global operator new. Under a
/// sanitizer, which brings an operator new of its own, nothing is counted.
///
///     support::AllocationCounter counter;
///     parameter.setValue(1);
///     EXPECT_EQ(counter.count(), 0u);
class AllocationCounter {
 public:
  AllocationCounter();
  /// Since this object was made.
  std::size_t count() const;

 private:
  std::size_t start_;
};

}  // namespace support
