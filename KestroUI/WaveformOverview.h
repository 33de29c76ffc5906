#pragma once

#include <memory>
#include <vector>

#include "platform/Geometry.h"
#include "platform/LiveBuffer.h"
#include "platform/Path.h"

namespace kestroui {

/// The outline of a recording at the width that it is drawn in, kept until either changes. All
/// channels are drawn as one.
class WaveformOverview {
 public:
  const std::shared_ptr<const platform::SampleData>& data() const { return data_; }
  /// True when it is another recording.
  bool setData(std::shared_ptr<const platform::SampleData> data);
  /// A closed outline that fits into `place`; empty without a recording.
  const platform::Path& outline(const platform::Rect& place);

 private:
  std::shared_ptr<const platform::SampleData> data_;
  platform::Path outline_;
  platform::Rect place_;
};

}  // namespace kestroui
