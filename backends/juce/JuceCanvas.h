#pragma once

#include <juce_graphics/juce_graphics.h>

#include <memory>
#include <vector>

#include "backends/juce/FontBook.h"
#include "backends/juce/Outline.h"
#include "backends/juce/Picture.h"
#include "backends/juce/PixelPainter.h"
#include "platform/Canvas.h"

namespace juce_backend {

/// Paints into a picture. Rectangles, clips and straight lines are moved to whole pixels, so that
/// they stay sharp at fractional scales; curves are not. It fills pixels by itself, from JUCE's
/// outlines and edge tables: it knows that the picture is opaque and what may be kept from one
/// painting to the next. User-interface thread only.
///
///     juce::Image picture = makePicture(1280, 960);
///     JuceCanvas canvas(picture, 1.25);
///     window.composite(canvas, area);
class JuceCanvas : public platform::Canvas {
 public:
  /// `picture` comes from makePicture; a point takes `scale` of its pixels.
  JuceCanvas(juce::Image& picture, double scale);
  /// Leaves everything outside of `clip`, in pixels, as it is.
  JuceCanvas(juce::Image& picture, double scale, juce::Rectangle<int> clip);

  void save() override;
  void restore() override;
  void place(const platform::Placement& placement) override;
  void clip(const platform::Rect& rect) override;

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
    /// In pixels.
    platform::Placement placement;
    /// In pixels.
    juce::Rectangle<int> clip;
  };

  double pixelsPerPoint() const { return state_.placement.scale; }
  juce::Rectangle<float> toPixels(const platform::Rect& rect) const;
  juce::Rectangle<int> toWholePixels(const platform::Rect& rect) const;
  int toWholePixels(double width) const;
  PixelSource source(const platform::Paint& paint) const;
  void fill(const juce::Path& path, const platform::Paint& paint);
  bool strokeStraightLine(const platform::Path& path, double width, const platform::Paint& paint);
  GlyphLine fitText(const platform::TextRun& run);
  juce::Rectangle<int> textClip(const platform::Rect& rect) const;

  PixelPainter painter_;
  juce::SharedResourcePointer<FontBook> fonts_;
  Outline outline_;
  State state_;
  std::vector<State> saved_;
};

}  // namespace juce_backend
