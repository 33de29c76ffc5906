#pragma once

#include "KestroUI/DisplayContainer.h"
#include "KestroUI/ZorvaView.h"

namespace kestroui {

/// Ribbons that up to five values shape.
class ZorvaViewContainer : public DisplayContainer {
 public:
  ZorvaViewContainer() { setDisplay(view_); }

 private:
  ZorvaView view_;
};

}  // namespace kestroui
