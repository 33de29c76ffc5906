#include "toolkit/Touch.h"

#include "toolkit/View.h"

namespace toolkit {

using platform::Point;

Point Touch::locationIn(const View& view) const { return view.convertFromRoot(location); }

Point Touch::previousLocationIn(const View& view) const {
  return view.convertFromRoot(previousLocation);
}

}  // namespace toolkit
