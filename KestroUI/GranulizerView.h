#pragma once

#include "KestroUI/DisplayView.h"
#include "KestroUI/WaveformOverview.h"

namespace kestroui {

/// Grains over the recording that they are cut from: as wide as they are long, as many as they are
/// dense, scattered as far as they are sprayed. One handle moves the position and the density, a
/// second one the length and the spray.
class GranulizerView : public DisplayView {
 public:
  GranulizerView();

  void setData(std::shared_ptr<const platform::SampleData> data);

 protected:
  std::vector<Handle> pictureHandles() const override;
  void paintPicture(platform::Canvas& canvas) override;

 private:
  void paintGrains(platform::Canvas& canvas);

  WaveformOverview overview_;
};

}  // namespace kestroui
