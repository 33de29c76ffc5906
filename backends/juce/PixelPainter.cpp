#include "backends/juce/PixelPainter.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace juce_backend {
namespace {

constexpr std::uint32_t evenBytes = 0x00ff00ff;
constexpr int maxRamp = 1024;
/// Added before a fraction is cut off, for numbers that are never negative.
constexpr float toNearest = 0.5f;

std::uint32_t alphaOf(std::uint32_t colour) { return colour >> 24; }

/// 0..255 to 0..256, so that a product needs only a shift.
std::uint32_t toShare(std::uint32_t level) { return level + (level >> 7); }

/// Two bytes at a time.
std::uint32_t scaled(std::uint32_t colour, std::uint32_t share) {
  const std::uint32_t even = ((colour & evenBytes) * share + 0x00800080) >> 8 & evenBytes;
  const std::uint32_t odd = ((colour >> 8 & evenBytes) * share + 0x00800080) & ~evenBytes;
  return even | odd;
}

/// `source` is premultiplied; what is below is opaque and stays so.
std::uint32_t blended(std::uint32_t below, std::uint32_t source) {
  return (source + scaled(below, toShare(255 - alphaOf(source)))) | 0xff000000;
}

std::uint32_t premultiplied(juce::Colour colour) {
  return juce::PixelARGB(colour.getPixelARGB()).getInARGBMaskOrder();
}

void blendRun(std::uint32_t* pixels, int count, std::uint32_t colour) {
  // By bytes, four pixels at a time, which compilers turn into one step.
  const auto share = static_cast<std::uint16_t>(toShare(255 - alphaOf(colour)));
  const std::uint32_t four[] = {colour, colour, colour, colour};
  std::uint8_t source[16];
  std::memcpy(source, four, sizeof source);
  auto* bytes = reinterpret_cast<std::uint8_t*>(pixels);
  for (; count >= 4; count -= 4, bytes += 16)
    for (int i = 0; i < 16; ++i)
      bytes[i] = static_cast<std::uint8_t>(
          source[i] + (static_cast<std::uint16_t>(bytes[i] * share + 128) >> 8));
  pixels = reinterpret_cast<std::uint32_t*>(bytes);
  for (int i = 0; i < count; ++i) pixels[i] = blended(pixels[i], colour);
}

void fillRun(std::uint32_t* pixels, int count, std::uint32_t colour) {
  if (alphaOf(colour) == 255)
    std::fill_n(pixels, count, colour);
  else if (alphaOf(colour) != 0)
    blendRun(pixels, count, colour);
}

void fillPixel(std::uint32_t* row, int x, const PixelSource& source, std::uint32_t share) {
  row[x] = blended(row[x], scaled(source.at(x), share));
}

void fillRun(std::uint32_t* row, int x, int count, const PixelSource& source, int level) {
  const std::uint32_t share = toShare(static_cast<std::uint32_t>(level));
  if (source.isEvenInRow())
    fillRun(row + x, count, scaled(source.rowColour(), share));
  else
    for (int i = x; i < x + count; ++i) fillPixel(row, i, source, share);
}

/// Rounding of a polygon's corners must not put them outside of its table.
juce::Rectangle<int> pixelsOf(const juce::Path& path) {
  return path.getBounds().getSmallestIntegerContainer().expanded(1, 0);
}

}  // namespace

PixelSource::PixelSource(juce::Colour colour) : rowColour_(premultiplied(colour)) {}

PixelSource::PixelSource(juce::Point<float> from, juce::Point<float> to,
                         const std::vector<std::pair<float, juce::Colour>>& stops) {
  for (const auto& [position, colour] : stops) {
    const std::uint32_t argb = premultiplied(colour);
    Stop stop{position, {}};
    for (int i = 0; i < 4; ++i) stop.channels[i] = static_cast<float>(argb >> (8 * i) & 255);
    stops_.push_back(stop);
  }
  const juce::Point<float> way = to - from;
  const float length = way.getDistanceFromOrigin();
  if (length > 0) {
    stepX_ = way.x / (length * length);
    stepY_ = way.y / (length * length);
    // The middle of a pixel.
    start_ = (0.5f - from.x) * stepX_ + (0.5f - from.y) * stepY_;
  }
  if (isEvenInRow()) return;
  ramp_.resize(
      static_cast<std::size_t>(std::clamp(static_cast<int>(std::ceil(length)), 2, maxRamp)));
  for (std::size_t i = 0; i < ramp_.size(); ++i)
    ramp_[i] = colourAt(static_cast<float>(i) / static_cast<float>(ramp_.size() - 1));
}

void PixelSource::setRow(int y) {
  if (stops_.empty()) return;
  rowStart_ = start_ + static_cast<float>(y) * stepY_;
  if (isEvenInRow()) rowColour_ = colourAt(rowStart_);
}

std::uint32_t PixelSource::colourAt(float position) const {
  std::size_t next = 0;
  while (next < stops_.size() && stops_[next].position <= position) ++next;
  const Stop& after = stops_[std::min(next, stops_.size() - 1)];
  const Stop& before = stops_[next > 0 ? next - 1 : 0];
  const float span = after.position - before.position;
  const float part = span > 0 ? (position - before.position) / span : 0;
  std::uint32_t colour = 0;
  for (int i = 0; i < 4; ++i) {
    const float value = before.channels[i] + (after.channels[i] - before.channels[i]) * part;
    colour |= static_cast<std::uint32_t>(value + toNearest) << (8 * i);
  }
  return colour;
}

std::uint32_t PixelSource::inRamp(int x) const {
  const float position = std::clamp(rowStart_ + static_cast<float>(x) * stepX_, 0.0f, 1.0f);
  return ramp_[static_cast<std::size_t>(position * static_cast<float>(ramp_.size() - 1) +
                                        toNearest)];
}

/// What an edge table calls for the parts of a shape.
class PixelPainter::PathFiller {
 public:
  PathFiller(const PixelPainter& painter, PixelSource& source)
      : painter_(painter), source_(source) {}

  void setEdgeTableYPos(int y) {
    row_ = painter_.row(y);
    source_.setRow(y);
  }
  void handleEdgeTablePixel(int x, int level) const {
    fillPixel(row_, x, source_, toShare(static_cast<std::uint32_t>(level)));
  }
  void handleEdgeTablePixelFull(int x) const { handleEdgeTablePixel(x, 255); }
  void handleEdgeTableLine(int x, int count, int level) const {
    fillRun(row_, x, count, source_, level);
  }
  void handleEdgeTableLineFull(int x, int count) const { fillRun(row_, x, count, source_, 255); }

 private:
  const PixelPainter& painter_;
  PixelSource& source_;
  std::uint32_t* row_ = nullptr;
};

PixelPainter::PixelPainter(juce::Image& picture)
    : pixels_(picture, juce::Image::BitmapData::readWrite), bounds_(picture.getBounds()) {
  jassert(pixels_.pixelStride == sizeof(std::uint32_t));
}

void PixelPainter::fillRect(juce::Rectangle<int> area, juce::Rectangle<int> clip,
                            PixelSource& source) {
  const juce::Rectangle<int> part = area.getIntersection(clip).getIntersection(bounds_);
  for (int y = part.getY(); y < part.getBottom(); ++y) {
    source.setRow(y);
    fillRun(row(y), part.getX(), part.getWidth(), source, 255);
  }
}

void PixelPainter::fillPath(const juce::Path& path, juce::Rectangle<int> clip,
                            PixelSource& source) {
  const juce::Rectangle<int> part = pixelsOf(path).getIntersection(clip).getIntersection(bounds_);
  if (part.isEmpty()) return;
  juce::EdgeTable table(part, path, {});
  PathFiller filler(*this, source);
  table.iterate(filler);
}

void PixelPainter::fillMask(const CoverageMask& mask, juce::Point<int> place,
                            juce::Rectangle<int> clip, PixelSource& source) {
  const juce::Rectangle<int> whole = mask.bounds + place;
  const juce::Rectangle<int> part = whole.getIntersection(clip).getIntersection(bounds_);
  for (int y = part.getY(); y < part.getBottom(); ++y) {
    source.setRow(y);
    std::uint32_t* pixels = row(y);
    const std::uint8_t* levels = mask.levels.data() + mask.offsetOf(y - whole.getY());
    for (int x = part.getX(); x < part.getRight(); ++x) {
      const std::uint32_t level = levels[x - whole.getX()];
      if (level != 0) fillPixel(pixels, x, source, toShare(level));
    }
  }
}

CoverageMask PixelPainter::maskOf(const juce::Path& path, float contrast) {
  CoverageMask mask;
  mask.bounds = pixelsOf(path);
  if (mask.bounds.isEmpty()) return mask;
  mask.levels.resize(static_cast<std::size_t>(mask.bounds.getWidth()) *
                     static_cast<std::size_t>(mask.bounds.getHeight()));

  struct Collector {
    void setEdgeTableYPos(int y) {
      row = mask.levels.data() + mask.offsetOf(y - mask.bounds.getY());
    }
    void handleEdgeTablePixel(int x, int level) { handleEdgeTableLine(x, 1, level); }
    void handleEdgeTablePixelFull(int x) { handleEdgeTableLine(x, 1, 255); }
    void handleEdgeTableLine(int x, int count, int level) {
      const float dense = static_cast<float>(level) * contrast;
      std::fill_n(row + (x - mask.bounds.getX()), count,
                  static_cast<std::uint8_t>(std::min(255.0f, dense)));
    }
    void handleEdgeTableLineFull(int x, int count) { handleEdgeTableLine(x, count, 255); }

    CoverageMask& mask;
    float contrast;
    std::uint8_t* row;
  } collector{mask, contrast, nullptr};
  const juce::EdgeTable table(mask.bounds, path, {});
  table.iterate(collector);
  return mask;
}

}  // namespace juce_backend
