#pragma once

#include <juce_graphics/juce_graphics.h>

#include <array>
#include <memory>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "backends/juce/GlyphMasks.h"
#include "platform/Font.h"

namespace juce_backend {

/// A line of text with every glyph in its place, in pixels from the left end of its base line. The
/// outlines are the font book's.
struct GlyphLine {
  struct Glyph {
    char32_t character = 0;
    /// At a height of 1.
    const juce::Path* outline = nullptr;
    float x = 0;
    float height = 0;
  };

  std::vector<Glyph> glyphs;
  float width = 0;
  float ascent = 0;
  float descent = 0;
};

/// The typefaces of the editor's one family and the widths of their characters. Characters that
/// the family lacks come from whichever installed typeface has them. Held through a
/// juce::SharedResourcePointer, so that all editors of a process share one; user-interface thread.
class FontBook {
 public:
  FontBook();
  ~FontBook();

  /// Width of one line of UTF-8 text in the unit of `font.pointSize`.
  double textWidth(std::string_view text, const platform::Font& font);
  /// Lays out one line with an em square of `pixelSize` pixels.
  GlyphLine layOut(std::string_view text, const platform::Font& font, double pixelSize);
  /// Like layOut, but drops characters at the end and adds an ellipsis until it fits `width`
  /// pixels; empty when not even the ellipsis does.
  GlyphLine layOutTruncated(std::string_view text, const platform::Font& font, double pixelSize,
                            double width);

  /// Of the outlines that lines are made of.
  GlyphMasks& masks() { return masks_; }

 private:
  struct Face;

  Face& face(platform::FontWeight weight);
  Face* makeFace(const juce::String& family, const juce::String& style);
  /// `preferred`, or another that has the character when it lacks it.
  Face& faceFor(char32_t character, Face& preferred);
  Face* installedFaceWith(char32_t character);
  GlyphLine layOut(const std::vector<char32_t>& text, const platform::Font& font, double pixelSize);

  std::vector<std::unique_ptr<Face>> faces_;
  std::array<Face*, 4> weights_{};
  std::unordered_map<char32_t, Face*> fallbacks_;
  GlyphMasks masks_;
};

}  // namespace juce_backend
