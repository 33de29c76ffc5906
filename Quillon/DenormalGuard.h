#pragma once

#include <cstdint>

#if defined(__SSE__) || defined(_M_X64)
#include <xmmintrin.h>
#endif

namespace quillon {

/// Makes this thread treat denormal numbers as zero while it lives: a decaying filter costs a
/// hundred times more once its state is denormal. RenderGuard has one. Does nothing on
/// processors that it does not know.
class DenormalGuard {
 public:
#if defined(__SSE__) || defined(_M_X64)
  DenormalGuard() : saved_(_mm_getcsr()) { _mm_setcsr(saved_ | flushToZero | denormalsAreZero); }
  ~DenormalGuard() { _mm_setcsr(saved_); }
#elif defined(__aarch64__)
  DenormalGuard() {
    asm volatile("mrs %0, fpcr" : "=r"(saved_));
    asm volatile("msr fpcr, %0" : : "r"(saved_ | flushToZero));
  }
  ~DenormalGuard() { asm volatile("msr fpcr, %0" : : "r"(saved_)); }
#else
  DenormalGuard() {}
  ~DenormalGuard() {}
#endif
  DenormalGuard(const DenormalGuard&) = delete;
  DenormalGuard& operator=(const DenormalGuard&) = delete;

 private:
#if defined(__SSE__) || defined(_M_X64)
  static constexpr unsigned int flushToZero = 1u << 15;
  static constexpr unsigned int denormalsAreZero = 1u << 6;
  unsigned int saved_;
#elif defined(__aarch64__)
  static constexpr std::uint64_t flushToZero = 1u << 24;
  std::uint64_t saved_;
#endif
};

}  // namespace quillon
