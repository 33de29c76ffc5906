#pragma once

#include <algorithm>
#include <chrono>
#include <ctime>
#include <vector>

namespace bench {

/// Nanoseconds that this thread has worked: what else the machine does and waiting do not count.
inline double workedNanoseconds() {
  timespec time{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
  return static_cast<double>(time.tv_sec) * 1e9 + static_cast<double>(time.tv_nsec);
}

/// Milliseconds that this thread works on `action`.
template <class Action>
double worked(Action action) {
  const double start = workedNanoseconds();
  action();
  return (workedNanoseconds() - start) * 1e-6;
}

inline double median(std::vector<double> values) {
  if (values.empty()) return 0;
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

struct Medians {
  double ours = 0;
  double stock = 0;
};

/// Both functions return one measurement. They take turns, so that a change in the machine's speed
/// meets both; a first turn that warms up does not count.
template <class Ours, class Stock>
Medians interleaved(int rounds, Ours ours, Stock stock) {
  ours();
  stock();
  std::vector<double> a, b;
  for (int round = 0; round < rounds; ++round) {
    a.push_back(ours());
    b.push_back(stock());
  }
  return {median(a), median(b)};
}

}  // namespace bench
