#pragma once

#include "KestroUI/XYControlContainer.h"

namespace kestroui {

/// The pad of an effect that stops time.
class TimeStopXYContainer : public XYControlContainer {};

}  // namespace kestroui
