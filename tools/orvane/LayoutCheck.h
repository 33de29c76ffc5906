#pragma once

#include "backends/headless/HeadlessHost.h"
#include "tools/orvane/Problems.h"

namespace tool {

/// Looks at every page of an editor at the size that it has now, and adds what nobody could use or
/// what lies where it does not belong: controls that are too small, that leave their section or
/// cover another that is no sibling; sections that leave their page or cover another.
void checkLayout(headless::HeadlessHost& host, Problems& problems);
/// Adds the parameters that no control of any page drives. After checkLayout, by which each page has
/// been shown.
void checkUse(headless::HeadlessHost& host, Problems& problems);

}  // namespace tool
