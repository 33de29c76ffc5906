#pragma once

#include <juce_graphics/juce_graphics.h>

#include <vector>

#include "backends/juce/FontBook.h"
#include "platform/Canvas.h"

namespace juce_backend {

/// Paints on a juce::Graphics. Rectangles, clips and straight lines are moved to whole pixels, so
/// that they stay sharp at fractional scales; curves are not. User-interface thread only.
///
///     juce::Graphics graphics(image);
///     JuceCanvas canvas(graphics, 1.25);
///     window.composite(canvas, area);
class JuceCanvas : public platform::Canvas {
 public:
  /// A unit of `graphics` is a device pixel, as when painting into an image; `scale` is how many
  /// of them a point takes. `graphics` outlives the canvas and is left as it was.
  JuceCanvas(juce::Graphics& graphics, double scale);
  ~JuceCanvas() override;

  void save() override;
  void restore() override;
  void concat(const platform::AffineTransform& transform) override;
  void clip(const platform::Rect& rect) override;
  void multiplyAlpha(float alpha) override;

  void fillRect(const platform::Rect& rect, const platform::Paint& paint) override;
  void fillRoundedRect(const platform::Rect& rect, double radius,
                       const platform::Paint& paint) override;
  void strokeRoundedRect(const platform::Rect& rect, double radius, double width,
                         const platform::Paint& paint) override;
  void fillEllipse(const platform::Rect& rect, const platform::Paint& paint) override;
  void fillPath(const platform::Path& path, const platform::Paint& paint) override;
  void strokePath(const platform::Path& path, const platform::StrokeStyle& style,
                  const platform::Paint& paint) override;

  void drawText(std::string_view text, const platform::Font& font, const platform::Rect& rect,
                platform::TextAlignment alignment, platform::Color color,
                double minimumScale = 0.7) override;
  void drawTextRun(const platform::TextRun& run) override;
  double textWidth(std::string_view text, const platform::Font& font) override;
  bool intersectsClip(const platform::Rect& rect) const override;

 private:
  struct State {
    platform::AffineTransform transform;
    /// In pixels.
    juce::Rectangle<int> clip;
    float alpha = 1;
    /// JUCE's own state is saved only by the first clip after a save: it is the costly part.
    bool isJuceStateSaved = false;
  };

  bool isUpright() const;
  /// How many pixels a point takes under the current transform.
  double pixelsPerPoint() const;
  juce::Rectangle<float> toPixels(const platform::Rect& rect) const;
  juce::Rectangle<int> toWholePixels(const platform::Rect& rect) const;
  int toWholePixels(double width) const;
  void setFill(const platform::Paint& paint);
  /// Fills `area` with a gradient that runs straight down; false for any other paint.
  bool fillBands(juce::Rectangle<int> area, const platform::Paint& paint);
  juce::Path& scratchPath(const platform::Path& path);
  bool strokeStraightLine(const platform::Path& path, double width, const platform::Paint& paint);
  GlyphLine fitText(std::string_view text, const platform::Font& font, const platform::Rect& rect,
                    double minimumScale);
  void drawLine(const GlyphLine& line, const platform::Rect& rect,
                platform::TextAlignment alignment, platform::Color color);

  juce::LowLevelGraphicsContext& context_;
  juce::SharedResourcePointer<FontBook> fonts_;
  State state_;
  std::vector<State> saved_;
  juce::Path scratch_;
};

}  // namespace juce_backend
