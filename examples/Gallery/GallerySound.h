#pragma once

#include <memory>

#include "platform/LiveBuffer.h"

namespace gallery {

/// A tone that changes slowly, for the displays alone: nobody hears it.
class GallerySound {
 public:
  /// Each channel sounds a little different.
  explicit GallerySound(int channel) : channel_(channel) {}

  float next();

  /// A struck bar of one and a half seconds.
  static std::shared_ptr<const platform::SampleData> recording();

 private:
  int channel_;
  double phase_ = 0;
  double slow_ = 0;
};

}  // namespace gallery
