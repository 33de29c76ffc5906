#pragma once

#include <memory>
#include <utility>
#include <vector>

#include "KestroUI/DisplayView.h"
#include "platform/Geometry.h"
#include "platform/LiveBuffer.h"
#include "platform/Path.h"

namespace kestroui {

/// The outline of a recording at the width that it is drawn in, kept until either changes. All
/// channels are drawn as one.
class WaveformOverview {
 public:
  /// True when it is another recording.
  bool setData(std::shared_ptr<const platform::SampleData> data);
  /// A closed outline that fits into `place`; empty without a recording.
  const platform::Path& outline(const platform::Rect& place);

 private:
  std::shared_ptr<const platform::SampleData> data_;
  platform::Path outline_;
  platform::Rect place_;
};

/// Base of the faces that show a recording.
class RecordingView : public DisplayView {
 public:
  void setData(std::shared_ptr<const platform::SampleData> data) {
    if (overview_.setData(std::move(data))) setNeedsDisplay();
  }

 protected:
  using DisplayView::DisplayView;

  const platform::Path& outline(const platform::Rect& place) { return overview_.outline(place); }

 private:
  WaveformOverview overview_;
};

/// A recording with handles at its start and end and at those of its loop; what lies outside is
/// dimmed. A measured position is the playing head.
class SampleView : public RecordingView {
 public:
  SampleView();

 protected:
  std::vector<Handle> pictureHandles() const override;
  void paintPicture(platform::Canvas& canvas) override;
  void paintHandle(platform::Canvas& canvas, const Handle& handle,
                   Plot::HandleState state) override;
  bool isMeasured(std::size_t part) const override;
  float limited(std::size_t index, float value) const override;

 private:
  enum Part : std::size_t { loopStart, loopEnd, start, end, head };

  double xOf(std::size_t part, double otherwise, Source source) const;
};

/// Grains over the recording that they are cut from: as wide as they are long, as many as they are
/// dense, scattered as far as they are sprayed. One handle moves the position and the density, a
/// second one the length and the spray.
class GranulizerView : public RecordingView {
 public:
  GranulizerView();

 protected:
  std::vector<Handle> pictureHandles() const override;
  void paintPicture(platform::Canvas& canvas) override;

 private:
  enum Part : std::size_t { position, density, length, spray, pitch };

  void paintGrains(platform::Canvas& canvas);
};

}  // namespace kestroui
