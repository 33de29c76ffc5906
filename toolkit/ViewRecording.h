#pragma once

#include "toolkit/DisplayList.h"
#include "toolkit/View.h"

namespace toolkit {

struct View::Recording {
  DisplayList list;
};

}  // namespace toolkit
