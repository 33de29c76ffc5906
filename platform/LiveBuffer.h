#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

namespace platform {

/// The newest samples of one sound, for a display: the render thread writes them, and neither side
/// ever waits for the other.
class LiveBuffer {
 public:
  virtual ~LiveBuffer() = default;

  /// How many samples there have been so far: unchanged means that there is nothing new to show.
  virtual std::uint64_t written() const = 0;
  /// Copies the newest samples, oldest first, and returns how many: fewer than asked for when there
  /// are not as many. Those that are overwritten meanwhile are simply newer.
  virtual std::size_t newest(std::span<float> samples) const = 0;
};

/// A recording, for a display. Never changes: another recording is another object.
struct SampleData {
  /// Not interleaved, all of one length.
  std::vector<std::vector<float>> channels;
  double sampleRate = 44100;
};

}  // namespace platform
