#pragma once

#include "KestroUI/DisplayView.h"
#include "KestroUI/WaveformOverview.h"

namespace kestroui {

/// A recording with handles at its start and end and at those of its loop; what lies outside is
/// dimmed. A measured position is the playing head.
class SampleView : public DisplayView {
 public:
  SampleView();

  void setData(std::shared_ptr<const platform::SampleData> data);

 protected:
  std::vector<Handle> pictureHandles() const override;
  void paintPicture(platform::Canvas& canvas) override;
  void paintHandle(platform::Canvas& canvas, const Handle& handle,
                   Plot::HandleState state) override;
  bool isMeasured(std::size_t part) const override;
  float limited(std::size_t index, float value) const override;

 private:
  double xOf(std::size_t part, double otherwise, Source source) const;

  WaveformOverview overview_;
};

}  // namespace kestroui
