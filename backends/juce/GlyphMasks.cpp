#include "backends/juce/GlyphMasks.h"

#include <functional>

namespace juce_backend {
namespace {

// Some megabytes. A window that is dragged larger and smaller goes through many sizes.
constexpr std::size_t maxMasks = 4096;

}  // namespace

std::size_t GlyphMasks::Hash::operator()(const Key& key) const {
  std::size_t result = std::hash<const void*>()(key.outline);
  for (const std::size_t part : {std::hash<float>()(key.height), std::hash<float>()(key.contrast),
                                 static_cast<std::size_t>(key.place)})
    result = result * 31 + part;
  return result;
}

std::shared_ptr<const CoverageMask> GlyphMasks::mask(const juce::Path& outline, float height,
                                                     int place, float contrast) {
  const Key key{&outline, height, contrast, place};
  const auto known = masks_.find(key);
  if (known != masks_.end()) return known->second;
  // Texts that are on screen keep theirs.
  if (masks_.size() >= maxMasks) masks_.clear();
  juce::Path path = outline;
  path.applyTransform(juce::AffineTransform::scale(height).translated(
      static_cast<float>(place) / placesPerPixel, 0));
  return masks_.emplace(key, std::make_shared<CoverageMask>(PixelPainter::maskOf(path, contrast)))
      .first->second;
}

}  // namespace juce_backend
