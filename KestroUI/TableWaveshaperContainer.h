#pragma once

#include "KestroUI/ShapeContainer.h"
#include "KestroUI/TableWaveshaperControl.h"

namespace kestroui {

/// A waveshaper whose curve is a table: each key is one of its points, from left to right.
class TableWaveshaperContainer : public ShapeContainer {
 public:
  TableWaveshaperContainer() { setShape(control_); }

 private:
  TableWaveshaperControl control_;
};

}  // namespace kestroui
