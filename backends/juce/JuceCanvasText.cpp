#include <algorithm>
#include <cmath>

#include "backends/juce/JuceCanvas.h"

namespace juce_backend {
namespace {

// What a text run keeps: its glyphs at the scale and the place within a pixel of the last painting.
struct CachedText {
  struct Glyph {
    std::shared_ptr<const CoverageMask> mask;
    int x = 0;
  };

  double scale = 0;
  double fraction = 0;
  int baseLine = 0;
  std::vector<Glyph> glyphs;
};

constexpr double placesPerPixel = GlyphMasks::placesPerPixel;

// Sizes that a fit leads to are rounded down to steps, so that labels of one row, which have
// nearly the same width, keep the same size.
constexpr double sizeStep = 0.25;

// Light letters on dark ground look thinner than they are.
float contrastFor(platform::Color color) {
  const float brightness = std::max({color.red, color.green, color.blue});
  return 1 + 1.6f * std::max(0.0f, brightness - 0.5f);
}

// Where a line begins in its rectangle of `width` and `height`; all in pixels.
juce::Point<double> startOf(const GlyphLine& line, double width, double height,
                            platform::TextAlignment alignment) {
  const double room = width - line.width;
  const double indent = alignment == platform::TextAlignment::left     ? 0
                        : alignment == platform::TextAlignment::centre ? room / 2
                                                                       : room;
  return {indent, (height + line.ascent - line.descent) / 2};
}

}  // namespace

GlyphLine JuceCanvas::fitText(const platform::TextRun& run) {
  const platform::Font& font = run.font;
  const double width = fonts_->textWidth(run.text, font);
  double fit = 1;
  if (width > run.rect.width) fit = run.rect.width / width;
  // Letters with ascenders and descenders take about the em square.
  if (font.pointSize > run.rect.height) fit = std::fmin(fit, run.rect.height / font.pointSize);
  double size = font.pointSize;
  if (fit < 1) {
    const double smallest = font.pointSize * run.minimumScale;
    size = std::fmax(std::floor(font.pointSize * fit / sizeStep) * sizeStep, smallest);
  }
  const double scale = pixelsPerPoint();
  // A tenth of a pixel of rounding must not cost the last letter.
  if (width * size / font.pointSize <= run.rect.width + 0.1 / scale)
    return fonts_->layOut(run.text, font, size * scale);
  return fonts_->layOutTruncated(run.text, font, size * scale, run.rect.width * scale);
}

void JuceCanvas::drawText(std::string_view text, const platform::Font& font,
                          const platform::Rect& rect, platform::TextAlignment alignment,
                          platform::Color color, double minimumScale) {
  platform::TextRun run;
  run.text = text;
  run.font = font;
  run.rect = rect;
  run.alignment = alignment;
  run.color = color;
  run.minimumScale = minimumScale;
  drawTextRun(run);
}

void JuceCanvas::drawTextRun(const platform::TextRun& run) {
  if (run.text.empty() || run.rect.isEmpty() || run.font.pointSize <= 0 ||
      !intersectsClip(run.rect))
    return;
  const double scale = pixelsPerPoint();
  const platform::Point corner = state_.placement.apply(run.rect.origin());
  const double left = std::floor(corner.x);
  const double fraction = std::floor((corner.x - left) * placesPerPixel) / placesPerPixel;
  auto cached = std::static_pointer_cast<CachedText>(run.cache);
  if (!cached || cached->scale != scale || cached->fraction != fraction) {
    const GlyphLine line = fitText(run);
    const juce::Point<double> start =
        startOf(line, run.rect.width * scale, run.rect.height * scale, run.alignment);
    // Base lines are on whole pixels, so that all letters of a row are equally sharp.
    cached =
        std::make_shared<CachedText>(CachedText{scale, fraction, juce::roundToInt(start.y), {}});
    cached->glyphs.reserve(line.glyphs.size());
    const float contrast = contrastFor(run.color);
    for (const GlyphLine::Glyph& glyph : line.glyphs) {
      const auto places =
          static_cast<int>(std::lround((start.x + fraction + glyph.x) * placesPerPixel));
      const int x = static_cast<int>(std::floor(places / placesPerPixel));
      cached->glyphs.push_back(
          {fonts_->masks().mask(*glyph.outline, glyph.height,
                                places - x * GlyphMasks::placesPerPixel, contrast),
           x});
    }
    run.cache = cached;
  }

  PixelSource pixels = source(run.color);
  const juce::Point<int> start(static_cast<int>(left),
                               static_cast<int>(std::lround(corner.y)) + cached->baseLine);
  const juce::Rectangle<int> clip = textClip(run.rect);
  for (const CachedText::Glyph& glyph : cached->glyphs)
    painter_.fillMask(*glyph.mask, start.translated(glyph.x, 0), clip, pixels);
}

juce::Rectangle<int> JuceCanvas::textClip(const platform::Rect& rect) const {
  // The blank beside the first and last letter's shape takes less than a pixel.
  return toPixels(rect).getSmallestIntegerContainer().expanded(1, 0).getIntersection(state_.clip);
}

double JuceCanvas::textWidth(std::string_view text, const platform::Font& font) {
  return fonts_->textWidth(text, font);
}

}  // namespace juce_backend
