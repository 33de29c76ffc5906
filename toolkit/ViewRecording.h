#pragma once

#include "platform/View.h"
#include "toolkit/DisplayList.h"

namespace platform {

struct View::Recording {
  toolkit::DisplayList list;
};

}  // namespace platform
