#include "backends/juce/FontBook.h"

#include <algorithm>

#include "foundation/UnicodeText.h"

namespace juce_backend {
namespace {

// No font has a glyph for it, so it shows what a face draws for missing characters.
constexpr char32_t noncharacter = 0xFFFF;
constexpr char32_t emSpace = 0x2003;
constexpr char32_t ellipsis = 0x2026;

struct StyleNames {
  platform::FontWeight weight;
  const char* names[3];
};
// Foundries disagree on blanks within style names.
constexpr StyleNames styles[] = {
    {platform::FontWeight::extraLight, {"Extra Light", "ExtraLight", "Light"}},
    {platform::FontWeight::regular, {"Regular", "Book", "Roman"}},
    {platform::FontWeight::medium, {"Medium", "Regular", "Book"}},
    {platform::FontWeight::semiBold, {"Semi Bold", "SemiBold", "Bold"}},
};

bool isDigit(char32_t character) { return character >= U'0' && character <= U'9'; }

std::vector<char32_t> decode(std::string_view text) {
  std::vector<char32_t> result;
  result.reserve(text.size());
  for (std::size_t at = 0; at < text.size();) {
    const foundation::CodePoint point = foundation::codePointAt(text, at);
    result.push_back(point.value);
    at += point.length;
  }
  return result;
}

}  // namespace

/// One typeface. Lengths are in units of the em square.
struct FontBook::Face {
  juce::Typeface::Ptr typeface;
  /// JUCE sizes fonts by ascent plus descent.
  double heightPerEm = 1.2;
  double maxDigitWidth = 0;
  juce::Path missingGlyph;

  struct Character {
    double width = 0;
    bool isMissing = false;
    juce::Path outline;
  };
  std::unordered_map<char32_t, Character> characters;

  const Character& character(char32_t code) {
    const auto known = characters.find(code);
    if (known != characters.end()) return known->second;
    const auto text = juce::String::charToString(static_cast<juce::juce_wchar>(code));
    Character measured;
    measured.width = typeface->getStringWidth(text) * heightPerEm;
    const bool isDrawn = typeface->getOutlineForGlyph(static_cast<int>(code), measured.outline);
    // Latin letters, digits and signs are in every face that is chosen on purpose.
    measured.isMissing = code >= 0x180 && (!isDrawn || measured.outline == missingGlyph);
    return characters.emplace(code, std::move(measured)).first->second;
  }

  double advance(char32_t code, bool tabularFigures) {
    return tabularFigures && isDigit(code) ? maxDigitWidth : character(code).width;
  }
};

FontBook::FontBook() {
  const juce::StringArray families = juce::Font::findAllTypefaceNames();
  const juce::String family = families.contains("Inter")
                                  ? juce::String("Inter")
                                  : juce::Font(juce::Font::getDefaultSansSerifFontName(), 12.0f, 0)
                                        .getTypefacePtr()
                                        ->getName();
  const juce::StringArray available = juce::Font::findAllTypefaceStyles(family);
  for (const StyleNames& style : styles) {
    const char* chosen = "Regular";
    for (const char* name : style.names) {
      if (!available.contains(name)) continue;
      chosen = name;
      break;
    }
    weights_[static_cast<std::size_t>(style.weight)] = makeFace(family, chosen);
  }
}

FontBook::~FontBook() = default;

FontBook::Face* FontBook::makeFace(const juce::String& family, const juce::String& style) {
  auto face = std::make_unique<Face>();
  face->typeface = juce::Font(family, style, 12.0f).getTypefacePtr();
  // An em space is one em wide by definition. A font without one answers something else, which is
  // then out of the range that real typefaces keep to.
  const double emPerHeight = face->typeface->getStringWidth(
      juce::String::charToString(static_cast<juce::juce_wchar>(emSpace)));
  face->heightPerEm = emPerHeight > 0.55 && emPerHeight < 1.05
                          ? 1 / emPerHeight
                          : 1 / juce::jmax(0.5, double(face->typeface->getHeightToPointsFactor()));
  face->typeface->getOutlineForGlyph(static_cast<int>(noncharacter), face->missingGlyph);
  for (char32_t digit = U'0'; digit <= U'9'; ++digit)
    face->maxDigitWidth = std::max(face->maxDigitWidth, face->advance(digit, false));
  faces_.push_back(std::move(face));
  return faces_.back().get();
}

FontBook::Face& FontBook::face(platform::FontWeight weight) {
  return *weights_[static_cast<std::size_t>(weight)];
}

FontBook::Face& FontBook::faceFor(char32_t character, Face& preferred) {
  if (!preferred.character(character).isMissing) return preferred;
  const auto known = fallbacks_.find(character);
  if (known != fallbacks_.end()) return known->second ? *known->second : preferred;

  Face* found = nullptr;
  for (const auto& face : faces_)
    if (!found && !face->character(character).isMissing) found = face.get();
  if (!found) found = installedFaceWith(character);
  fallbacks_.emplace(character, found);
  return found ? *found : preferred;
}

FontBook::Face* FontBook::installedFaceWith(char32_t character) {
  for (const juce::String& family : juce::Font::findAllTypefaceNames()) {
    const bool wasAsked = std::any_of(faces_.begin(), faces_.end(), [&](const auto& face) {
      return face->typeface->getName() == family;
    });
    if (wasAsked) continue;
    Face* candidate = makeFace(family, "Regular");
    if (!candidate->character(character).isMissing) return candidate;
    faces_.pop_back();
  }
  return nullptr;
}

double FontBook::textWidth(std::string_view text, const platform::Font& font) {
  Face& preferred = face(font.weight);
  double width = 0;
  for (char32_t character : decode(text))
    width += faceFor(character, preferred).advance(character, font.tabularFigures);
  return width * font.pointSize;
}

GlyphLine FontBook::layOut(std::string_view text, const platform::Font& font, double pixelSize) {
  return layOut(decode(text), font, pixelSize);
}

GlyphLine FontBook::layOutTruncated(std::string_view text, const platform::Font& font,
                                    double pixelSize, double width) {
  std::vector<char32_t> characters = decode(text);
  Face& preferred = face(font.weight);
  std::vector<double> ends;
  double end = 0;
  for (char32_t character : characters) {
    end += faceFor(character, preferred).advance(character, font.tabularFigures) * pixelSize;
    ends.push_back(end);
  }
  const double room = width - faceFor(ellipsis, preferred).advance(ellipsis, false) * pixelSize;
  if (room < 0) return {};
  std::size_t kept = 0;
  while (kept < ends.size() && ends[kept] <= room) ++kept;
  // A blank before the ellipsis reads as a gap.
  while (kept > 0 && characters[kept - 1] == U' ') --kept;
  characters.resize(kept);
  characters.push_back(ellipsis);
  return layOut(characters, font, pixelSize);
}

GlyphLine FontBook::layOut(const std::vector<char32_t>& text, const platform::Font& font,
                           double pixelSize) {
  Face& preferred = face(font.weight);
  GlyphLine line;
  const double height = pixelSize * preferred.heightPerEm;
  line.ascent = static_cast<float>(preferred.typeface->getAscent() * height);
  line.descent = static_cast<float>(preferred.typeface->getDescent() * height);
  line.glyphs.reserve(text.size());
  double x = 0;
  for (char32_t character : text) {
    Face& glyphFace = faceFor(character, preferred);
    const Face::Character& glyph = glyphFace.character(character);
    const double width = glyphFace.advance(character, font.tabularFigures) * pixelSize;
    if (!glyph.outline.isEmpty())
      line.glyphs.push_back({character, &glyph.outline,
                             static_cast<float>(x + (width - glyph.width * pixelSize) / 2),
                             static_cast<float>(pixelSize * glyphFace.heightPerEm)});
    x += width;
  }
  line.width = static_cast<float>(x);
  return line;
}

}  // namespace juce_backend
