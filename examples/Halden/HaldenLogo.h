#pragma once

#include "platform/Image.h"

namespace halden {

/// The letter of the name, with a wave for its crossbar, on a tile.
platform::Image logo();

}  // namespace halden
