#pragma once

#include "KestroUI/DisplayView.h"
#include "platform/Path.h"

namespace kestroui {

/// Ribbons of light that the values shape: the first two (under the handle) how often they turn and
/// how high they rise, the next how far they stand apart, how they are twisted and how they fade.
/// It moves only when a value does.
class ZorvaView : public DisplayView {
 public:
  ZorvaView();

 protected:
  std::vector<Handle> pictureHandles() const override;
  void paintPicture(platform::Canvas& canvas) override;

 private:
  platform::Path path_;
};

}  // namespace kestroui
