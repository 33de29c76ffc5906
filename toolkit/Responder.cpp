#include "platform/Responder.h"

#include "platform/View.h"

namespace platform {

Point Touch::locationIn(const View& view) const { return view.convertFromRoot(location); }

Point Touch::previousLocationIn(const View& view) const {
  return view.convertFromRoot(previousLocation);
}

}  // namespace platform
