#include "tools/orvane/Picture.h"

#include "tools/orvane/Problems.h"

#ifdef ORVANE_HAS_JUCE
#include "backends/juce/Snapshot.h"
#include "tools/orvane/Text.h"
#endif

namespace tool {

#ifdef ORVANE_HAS_JUCE

namespace {

/// A quarter of a gibibyte of picture.
constexpr double maxPixels = 1 << 26;

}  // namespace

void requirePictures() {}

void writePicture(headless::HeadlessHost& host, const std::string& path, double scale) {
  const platform::Size size = host.window().size();
  if (size.width * scale * size.height * scale > maxPixels)
    throw Failure(path + ": a picture of " + sizeText(size) + " points at this scale is too large");
  std::string error;
  if (!juce_backend::writeSnapshot(host.window(), scale, path, error)) throw Failure(error);
}

#else

void requirePictures() {
  throw Failure("orvane was built without the desktop backend, so it cannot draw pictures");
}

void writePicture(headless::HeadlessHost&, const std::string&, double) { requirePictures(); }

#endif

}  // namespace tool
