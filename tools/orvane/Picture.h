#pragma once

#include <string>

#include "backends/headless/HeadlessHost.h"

namespace tool {

/// Throws a Failure when this build cannot draw, which is so without the desktop backend.
void requirePictures();
/// Writes what the host shows as a PNG, `scale` pixels a point. Throws a Failure that names the
/// file when it cannot.
void writePicture(headless::HeadlessHost& host, const std::string& path, double scale);

}  // namespace tool
