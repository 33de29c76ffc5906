#pragma once

#include <cstddef>
#include <memory>
#include <unordered_map>

#include "backends/juce/PixelPainter.h"

namespace juce_backend {

/// The shapes of single glyphs in pixels, so that a new text costs no outline whose letters have
/// been painted before at this size. Message thread only.
class GlyphMasks {
 public:
  /// A glyph may begin at so many places within a pixel.
  static constexpr int placesPerPixel = 4;

  /// The mask of `outline`, which must live as long as this and is told by its address, with
  /// `height` pixels to its unit, `place` quarters of a pixel to the right; relative to the start
  /// of the glyph on its base line. `contrast` as for PixelPainter::maskOf.
  std::shared_ptr<const CoverageMask> mask(const juce::Path& outline, float height, int place,
                                           float contrast);

 private:
  struct Key {
    const juce::Path* outline;
    float height;
    float contrast;
    int place;

    bool operator==(const Key&) const = default;
  };
  struct Hash {
    std::size_t operator()(const Key& key) const;
  };

  std::unordered_map<Key, std::shared_ptr<const CoverageMask>, Hash> masks_;
};

}  // namespace juce_backend
