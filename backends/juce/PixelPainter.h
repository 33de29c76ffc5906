#pragma once

#include <juce_graphics/juce_graphics.h>

#include <cstddef>
#include <cstdint>
#include <vector>

namespace juce_backend {

/// How much of each pixel of a rectangle a shape covers, 0 to 255.
struct CoverageMask {
  /// In pixels, from whatever place the mask is painted at.
  juce::Rectangle<int> bounds;
  /// Rows from the top.
  std::vector<std::uint8_t> levels;

  /// Where the levels of a row begin; the first row is 0.
  std::ptrdiff_t offsetOf(int row) const {
    return static_cast<std::ptrdiff_t>(row) * bounds.getWidth();
  }
};

/// The colour of every pixel of a fill: one for all, or a linear gradient.
class PixelSource {
 public:
  struct Stop {
    float position = 0;
    /// Premultiplied, 0 to 255: blue, green, red, alpha.
    float channels[4] = {};
  };

  explicit PixelSource(juce::Colour colour);
  /// From the first colour at `from` to the last at `to`, with positions that ascend from 0 to 1.
  PixelSource(juce::Point<float> from, juce::Point<float> to,
              const std::vector<std::pair<float, juce::Colour>>& stops);

  void setRow(int y);
  /// All pixels of a row have one colour.
  bool isEvenInRow() const { return stepX_ == 0; }
  std::uint32_t rowColour() const { return rowColour_; }
  std::uint32_t at(int x) const { return isEvenInRow() ? rowColour_ : inRamp(x); }

 private:
  std::uint32_t colourAt(float position) const;
  std::uint32_t inRamp(int x) const;

  std::vector<Stop> stops_;
  /// The colours of gradients that change within rows, in equal steps.
  std::vector<std::uint32_t> ramp_;
  /// Positions from one pixel to the next.
  float stepX_ = 0, stepY_ = 0;
  float start_ = 0, rowStart_ = 0;
  std::uint32_t rowColour_ = 0;
};

/// Fills shapes in a picture that makePicture made. Everything stays within the picture and the
/// clip that is passed along. Message thread only.
class PixelPainter {
 public:
  explicit PixelPainter(juce::Image& picture);

  juce::Rectangle<int> bounds() const { return bounds_; }

  void fillRect(juce::Rectangle<int> area, juce::Rectangle<int> clip, PixelSource& source);
  /// Everything that `path`, in pixels, winds around.
  void fillPath(const juce::Path& path, juce::Rectangle<int> clip, PixelSource& source);
  void fillMask(const CoverageMask& mask, juce::Point<int> place, juce::Rectangle<int> clip,
                PixelSource& source);

  /// The mask of a path; `contrast` makes covered pixels denser, 1 leaves them.
  static CoverageMask maskOf(const juce::Path& path, float contrast);

 private:
  class PathFiller;

  std::uint32_t* row(int y) const {
    return reinterpret_cast<std::uint32_t*>(pixels_.getLinePointer(y));
  }

  juce::Image::BitmapData pixels_;
  juce::Rectangle<int> bounds_;
};

}  // namespace juce_backend
