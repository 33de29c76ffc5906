#include <cmath>

#include "backends/juce/JuceCanvas.h"

namespace juce_backend {
namespace {

// What a text run keeps: its glyphs at the scale at which it was painted last.
struct CachedLine {
  double scale = 0;
  GlyphLine line;
};

// Sizes that a fit leads to are rounded down to steps, so that labels of one row, which have
// nearly the same width, keep the same size and share their glyphs.
constexpr double sizeStep = 0.25;

}  // namespace

GlyphLine JuceCanvas::fitText(std::string_view text, const platform::Font& font,
                              const platform::Rect& rect, double minimumScale) {
  const double width = fonts_->textWidth(text, font);
  double fit = 1;
  if (width > rect.width) fit = rect.width / width;
  // Letters with ascenders and descenders take about the em square.
  if (font.pointSize > rect.height) fit = std::fmin(fit, rect.height / font.pointSize);
  double size = font.pointSize;
  if (fit < 1) {
    const double smallest = font.pointSize * minimumScale;
    size = std::fmax(std::floor(font.pointSize * fit / sizeStep) * sizeStep, smallest);
  }
  const double scale = pixelsPerPoint();
  // A tenth of a pixel of rounding must not cost the last letter.
  if (width * size / font.pointSize <= rect.width + 0.1 / scale)
    return fonts_->layOut(text, font, size * scale);
  return fonts_->layOutTruncated(text, font, size * scale, rect.width * scale);
}

void JuceCanvas::drawLine(const GlyphLine& line, const platform::Rect& rect,
                          platform::TextAlignment alignment, platform::Color color) {
  const double scale = pixelsPerPoint();
  const double room = rect.width * scale - line.width;
  const double indent = alignment == platform::TextAlignment::left     ? 0
                        : alignment == platform::TextAlignment::centre ? room / 2
                                                                       : room;
  const double baseline = (rect.height * scale + line.ascent - line.descent) / 2;

  // Only text that is higher than its rectangle can reach out of it.
  const bool isTooHigh = line.ascent + line.descent > rect.height * scale * 1.25;
  if (isTooHigh) {
    save();
    clip(rect);
  }
  context_.setFill(juce::Colour(color.withAlpha(color.alpha * state_.alpha).argb()));
  const platform::AffineTransform& t = state_.transform;
  const platform::Point origin = t.apply(rect.origin());
  const bool isPlain = isUpright() && t.a > 0 && t.a == t.d;
  const juce::AffineTransform turned(
      static_cast<float>(t.a / scale), static_cast<float>(t.c / scale),
      static_cast<float>(origin.x), static_cast<float>(t.b / scale),
      static_cast<float>(t.d / scale), static_cast<float>(origin.y));
  int font = -1;
  for (const GlyphLine::Glyph& glyph : line.glyphs) {
    if (glyph.font != font) {
      font = glyph.font;
      context_.setFont(line.fonts[static_cast<std::size_t>(font)]);
    }
    const double x = indent + glyph.x;
    if (isPlain)
      context_.drawGlyph(glyph.character,
                         juce::AffineTransform::translation(
                             static_cast<float>(origin.x + x),
                             static_cast<float>(origin.y + baseline)));
    else
      context_.drawGlyph(glyph.character,
                         juce::AffineTransform::translation(static_cast<float>(x),
                                                            static_cast<float>(baseline))
                             .followedBy(turned));
  }
  if (isTooHigh) restore();
}

void JuceCanvas::drawText(std::string_view text, const platform::Font& font,
                          const platform::Rect& rect, platform::TextAlignment alignment,
                          platform::Color color, double minimumScale) {
  if (text.empty() || rect.isEmpty() || font.pointSize <= 0 || !intersectsClip(rect)) return;
  drawLine(fitText(text, font, rect, minimumScale), rect, alignment, color);
}

void JuceCanvas::drawTextRun(const platform::TextRun& run) {
  if (run.text.empty() || run.rect.isEmpty() || run.font.pointSize <= 0 ||
      !intersectsClip(run.rect))
    return;
  auto cached = std::static_pointer_cast<CachedLine>(run.cache);
  const double scale = pixelsPerPoint();
  if (!cached || cached->scale != scale) {
    cached = std::make_shared<CachedLine>(
        CachedLine{scale, fitText(run.text, run.font, run.rect, run.minimumScale)});
    run.cache = cached;
  }
  drawLine(cached->line, run.rect, run.alignment, run.color);
}

double JuceCanvas::textWidth(std::string_view text, const platform::Font& font) {
  return fonts_->textWidth(text, font);
}

}  // namespace juce_backend
