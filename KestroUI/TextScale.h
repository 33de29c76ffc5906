#pragma once

#include "toolkit/View.h"

namespace kestroui {

/// How much larger texts are in the tree of `view` than on an editor of ordinary size: 1 up to
/// there, and on a large screen less than the editor itself is larger.
double textScaleIn(const toolkit::View& view);

}  // namespace kestroui
