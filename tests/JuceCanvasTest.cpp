#include "backends/juce/JuceCanvas.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <set>
#include <string>
#include <tuple>

namespace {

using juce_backend::JuceCanvas;
using platform::Color;
using platform::Rect;

constexpr double scales[] = {1, 1.25, 1.5, 2, 3};
const platform::Font font{platform::FontWeight::regular, 12, false};

juce::Image paint(double scale, platform::Size size,
                  const std::function<void(JuceCanvas&)>& painting) {
  juce::Image image = juce_backend::makePicture(static_cast<int>(std::ceil(size.width * scale)),
                                                static_cast<int>(std::ceil(size.height * scale)));
  JuceCanvas canvas(image, scale);
  painting(canvas);
  return image;
}

/// The pixels that are not black.
juce::Rectangle<int> ink(const juce::Image& image) {
  juce::Rectangle<int> area;
  for (int y = 0; y < image.getHeight(); ++y)
    for (int x = 0; x < image.getWidth(); ++x)
      if (image.getPixelAt(x, y).getBrightness() > 0.05f)
        area = area.isEmpty() ? juce::Rectangle<int>(x, y, 1, 1)
                              : area.getUnion(juce::Rectangle<int>(x, y, 1, 1));
  return area;
}

std::set<juce::uint32> colours(const juce::Image& image) {
  std::set<juce::uint32> found;
  for (int y = 0; y < image.getHeight(); ++y)
    for (int x = 0; x < image.getWidth(); ++x) found.insert(image.getPixelAt(x, y).getARGB());
  return found;
}

bool areSame(const juce::Image& a, const juce::Image& b) {
  for (int y = 0; y < a.getHeight(); ++y)
    for (int x = 0; x < a.getWidth(); ++x)
      if (a.getPixelAt(x, y) != b.getPixelAt(x, y)) return false;
  return a.getBounds() == b.getBounds();
}

platform::Path line(platform::Point from, platform::Point to) {
  platform::Path path;
  path.moveTo(from);
  path.lineTo(to);
  return path;
}

TEST(JuceCanvas, rectanglesAndStraightLinesHaveNoGreyEdgesAtAnyScale) {
  const platform::StrokeStyle butt{1, platform::StrokeStyle::Cap::butt};
  const std::pair<const char*, std::function<void(JuceCanvas&)>> cases[] = {
      {"fillRect",
       [](JuceCanvas& c) {
         c.fillRect({3.3, 2.7, 11.1, 0.3}, Color::white());
       }},
      {"upright fillRect",
       [](JuceCanvas& c) {
         c.fillRect({3.3, 2.7, 0.1, 11.1}, Color::white());
       }},
      {"frame",
       [](JuceCanvas& c) {
         c.strokeRoundedRect({3, 3, 20, 9}, 0, 1, Color::white());
       }},
      {"level line",
       [&](JuceCanvas& c) {
         c.strokePath(line({2, 5}, {20, 5}), butt, Color::white());
       }},
      {"upright line",
       [](JuceCanvas& c) {
         c.strokePath(line({7, 3}, {7, 12}), {0.5}, Color::white());
       }},
      {"clip",
       [](JuceCanvas& c) {
         c.save();
         c.clip({2.3, 2.3, 7, 7});
         c.fillRect({-50, -50, 130, 130}, Color::white());
         c.restore();
       }},
  };
  for (double scale : scales) {
    for (const auto& [name, painting] : cases) {
      const std::set<juce::uint32> found = colours(paint(scale, {30, 20}, painting));
      EXPECT_EQ(found, (std::set<juce::uint32>{0xff000000, 0xffffffff}))
          << name << " at scale " << scale;
    }
  }
}

TEST(JuceCanvas, everyHairlineOfAGridIsEquallyThick) {
  for (double scale : scales) {
    const juce::Image image = paint(scale, {40, 4}, [](JuceCanvas& c) {
      for (int x = 2; x < 40; x += 4)
        c.strokePath(line({x + 0.5, 0}, {x + 0.5, 4}), {1}, Color::white());
    });
    std::set<int> widths;
    int run = 0;
    for (int x = 0; x < image.getWidth(); ++x) {
      if (image.getPixelAt(x, 1) == juce::Colours::white) {
        ++run;
      } else if (run > 0) {
        widths.insert(run);
        run = 0;
      }
    }
    EXPECT_EQ(widths.size(), 1u) << "at scale " << scale;
  }
}

TEST(JuceCanvas, shapesCoverWhatTheirOutlinesSay) {
  using Cap = platform::StrokeStyle::Cap;
  constexpr double pi = 3.14159265;
  platform::Path bow, corner, square;
  bow.moveTo({5, 25});
  bow.quadTo({15, 5}, {25, 25});
  corner.moveTo({5, 5});
  corner.lineTo({25, 5});
  corner.lineTo({25, 25});
  square.addRect({10, 10, 10, 10});
  const std::tuple<const char*, double, std::function<void(JuceCanvas&)>> cases[] = {
      {"ellipse", 50 * pi,
       [](JuceCanvas& c) {
         c.fillEllipse({5, 5, 20, 10}, Color::white());
       }},
      {"rounded", 200 - (4 - pi) * 16,
       [](JuceCanvas& c) {
         c.fillRoundedRect({5, 5, 20, 10}, 4, Color::white());
       }},
      {"frame", 120,
       [](JuceCanvas& c) {
         c.strokeRoundedRect({5, 5, 20, 10}, 0, 2, Color::white());
       }},
      {"round frame", 120 - (4 - pi) * (25 - 9),
       [](JuceCanvas& c) {
         c.strokeRoundedRect({5, 5, 20, 10}, 4, 2, Color::white());
       }},
      {"bow", 20 * 10 * 2 / 3.0, [&](JuceCanvas& c) { c.fillPath(bow, Color::white()); }},
      {"butt line", 80,
       [](JuceCanvas& c) {
         c.strokePath(line({5, 10}, {25, 10}), {4, Cap::butt}, Color::white());
       }},
      {"round line", 80 + 4 * pi,
       [](JuceCanvas& c) {
         c.strokePath(line({5, 10}, {25, 10}), {4, Cap::round}, Color::white());
       }},
      {"slanted line", 4 * 20 * std::sqrt(2),
       [](JuceCanvas& c) {
         c.strokePath(line({5, 5}, {25, 25}), {4, Cap::butt}, Color::white());
       }},
      {"round corner", 160 - 4 + pi,
       [&](JuceCanvas& c) {
         c.strokePath(corner, {4, Cap::butt}, Color::white());
       }},
      {"closed", 160 - 16 + 4 * pi,
       [&](JuceCanvas& c) {
         c.strokePath(square, {4, Cap::butt}, Color::white());
       }},
      {"dot", 4 * pi,
       [](JuceCanvas& c) {
         c.strokePath(line({9, 9}, {9, 9}), {4, Cap::round}, Color::white());
       }},
      {"half", 100 * 0.5,
       [](JuceCanvas& c) {
         c.fillRect({5, 5, 10, 10}, Color::white().withAlpha(0.5f));
       }},
  };
  for (double scale : {1.0, 2.0}) {
    for (const auto& [name, area, painting] : cases) {
      const juce::Image image = paint(scale, {30, 30}, painting);
      double covered = 0;
      for (int y = 0; y < image.getHeight(); ++y)
        for (int x = 0; x < image.getWidth(); ++x)
          covered += image.getPixelAt(x, y).getRed() / 255.0;
      EXPECT_NEAR(covered / (scale * scale), area, area * 0.025 + 0.5)
          << name << " at scale " << scale;
    }
  }
}

TEST(JuceCanvas, translucentColoursMixEquallyWhereverTheyBegin) {
  for (int width = 1; width < 10; ++width) {
    const juce::Image image = paint(1, {12, 3}, [&](JuceCanvas& c) {
      c.fillRect({0, 0, 12, 3}, Color::rgb(0x400000));
      c.fillRect({1, 1, static_cast<double>(width), 1}, Color::white().withAlpha(0.25f));
    });
    for (int x = 0; x < 12; ++x) {
      const bool mixed = x >= 1 && x < 1 + width;
      EXPECT_NEAR(image.getPixelAt(x, 1).getRed(), mixed ? 0x40 * 0.75 + 64 : 0x40, 2) << x;
      EXPECT_NEAR(image.getPixelAt(x, 1).getGreen(), mixed ? 64 : 0, 2) << x;
    }
  }
}

TEST(JuceCanvas, textStandsWhereItsAlignmentSays) {
  const auto found = [](platform::TextAlignment alignment) {
    return ink(paint(2, {100, 40}, [&](JuceCanvas& c) {
      c.drawText("HHH", font, {10, 10, 80, 20}, alignment, Color::white());
    }));
  };
  const auto left = found(platform::TextAlignment::left);
  const auto centre = found(platform::TextAlignment::centre);
  const auto right = found(platform::TextAlignment::right);
  EXPECT_NEAR(left.getX(), 20, 4);
  EXPECT_NEAR(centre.getX() + centre.getRight(), 200, 3);
  EXPECT_NEAR(right.getRight(), 180, 4);
  EXPECT_NEAR(left.getY() + left.getBottom(), 80, 5);
}

TEST(JuceCanvas, textStaysInItsRectangle) {
  struct Case {
    const char* text;
    Rect rect;
    double pointSize;
    double minimumScale;
  };
  const Case cases[] = {
      {"fits", {20, 20, 60, 20}, 12, 0.7},
      {"is set a little smaller", {20, 20, 110, 20}, 12, 0.7},
      {"is much too long to be shown in so small a place", {20, 20, 60, 20}, 12, 0.7},
      {"Ågjy", {20, 20, 60, 12}, 40, 1},
      {"not even an ellipsis", {20, 20, 4, 20}, 20, 1},
      {"\xe4\xb8\xad\xe6\x96\x87 \xe2\x99\xaf \xf0\x9f\x8e\xb9", {20, 20, 40, 20}, 16, 0.7},
      {"\xff\xc0 is no UTF-8", {20, 20, 60, 20}, 12, 0.7},
  };
  for (double scale : scales) {
    for (const Case& c : cases) {
      for (auto alignment : {platform::TextAlignment::left, platform::TextAlignment::centre,
                             platform::TextAlignment::right}) {
        const juce::Rectangle<int> found = ink(paint(scale, {160, 60}, [&](JuceCanvas& canvas) {
          canvas.drawText(c.text, font.withSize(c.pointSize), c.rect, alignment, Color::white(),
                          c.minimumScale);
        }));
        const auto allowed = juce::Rectangle<double>(c.rect.x * scale, c.rect.y * scale,
                                                     c.rect.width * scale, c.rect.height * scale)
                                 .getSmallestIntegerContainer()
                                 .expanded(1);
        EXPECT_TRUE(found.isEmpty() || allowed.contains(found))
            << c.text << " at scale " << scale << ": " << found.toString();
      }
    }
  }
}

TEST(JuceCanvas, aTextThatIsTooWideShrinksBeforeItIsCut) {
  juce_backend::FontBook fonts;
  const std::string text = "Resonance";
  const double width = fonts.textWidth(text, font);
  const auto inkWidth = [&](double room) {
    return ink(paint(4, {200, 30},
                     [&](JuceCanvas& c) {
                       c.drawText(text, font, {0, 5, room, 20}, platform::TextAlignment::left,
                                  Color::white());
                     }))
               .getWidth() /
           4.0;
  };
  EXPECT_NEAR(inkWidth(width + 1), width, 2);
  EXPECT_NEAR(inkWidth(width * 0.8), width * 0.8, 3);
  // Cut, at seven tenths of its size.
  const juce_backend::GlyphLine cut = fonts.layOutTruncated(text, font, 8.4, width * 0.5);
  EXPECT_EQ(cut.glyphs.back().character, U'\u2026');
  EXPECT_LE(cut.width, width * 0.5);
  EXPECT_LT(cut.glyphs.size(), text.size());
}

TEST(JuceCanvas, tabularFiguresAreEquallyWide) {
  juce_backend::FontBook fonts;
  const platform::Font tabular{platform::FontWeight::regular, 12, true};
  EXPECT_DOUBLE_EQ(fonts.textWidth("1111", tabular), fonts.textWidth("0000", tabular));
  EXPECT_LT(fonts.textWidth("1111", font), fonts.textWidth("0000", font));
  EXPECT_DOUBLE_EQ(fonts.textWidth("dB", tabular), fonts.textWidth("dB", font));
}

TEST(JuceCanvas, aKeptRunPaintsLikeAFreshText) {
  platform::TextRun run;
  run.text = "Cutoff";
  run.font = font;
  run.rect = {2, 2, 60, 16};
  run.color = Color::white();
  for (const auto& [scale, left] :
       {std::pair{1.0, 0.0}, {1.0, 0.0}, {1.5, 0.0}, {1.0, 0.0}, {1.0, 0.5}, {1.0, 3.25}}) {
    const juce::Image kept = paint(scale, {70, 20}, [&, left = left](JuceCanvas& c) {
      c.place({{left, 0}});
      c.drawTextRun(run);
    });
    const juce::Image fresh = paint(scale, {70, 20}, [&, left = left](JuceCanvas& c) {
      c.place({{left, 0}});
      c.drawText(run.text, run.font, run.rect, run.alignment, run.color, run.minimumScale);
    });
    EXPECT_TRUE(areSame(kept, fresh)) << "at scale " << scale;
    EXPECT_TRUE(run.cache);
  }
}

TEST(JuceCanvas, restoreBringsBackPlacementAndClip) {
  const juce::Image image = paint(2, {30, 10}, [](JuceCanvas& c) {
    c.save();
    c.place({{10, 0}});
    c.clip({0, 0, 5, 10});
    c.save();
    c.place({{0, 0}, 0.5});
    c.clip({0, 0, 10, 10});
    c.fillRect({0, 0, 60, 20}, Color::white().withAlpha(0.25f));
    EXPECT_FALSE(c.intersectsClip({16, 0, 10, 10}));
    c.restore();
    c.fillRect({0, 5, 30, 10}, Color::white().withAlpha(0.5f));
    c.restore();
    EXPECT_TRUE(c.intersectsClip({18, 0, 5, 5}));
    c.fillRect({20, 0, 10, 10}, Color::white());
  });
  EXPECT_EQ(image.getPixelAt(10, 10).getRed(), 0);
  EXPECT_NEAR(image.getPixelAt(24, 4).getRed(), 64, 1);
  EXPECT_NEAR(image.getPixelAt(24, 14).getRed(), 128, 1);
  EXPECT_EQ(image.getPixelAt(32, 4).getRed(), 0);
  EXPECT_EQ(image.getPixelAt(50, 4).getRed(), 255);
}

TEST(JuceCanvas, whatIsPaintedInPartsIsTheSameAsInOnePiece) {
  const auto painting = [](JuceCanvas& c) {
    c.strokePath(line({3, 10}, {27, 10}), {6}, Color::rgb(0xff8000));
    c.strokeRoundedRect({4, 3, 22, 22}, 5, 3, Color::rgb(0x8000ff));
    c.drawText("Resonance", font.withSize(9), {2, 12, 26, 14}, platform::TextAlignment::left,
               Color::white());
    c.fillEllipse({8, 14, 9, 9}, Color::white().withAlpha(0.3f));
  };
  for (const double scale : {1.0, 1.25, 2.0}) {
    const juce::Image whole = paint(scale, {30, 30}, painting);
    juce::Image parts = juce_backend::makePicture(whole.getWidth(), whole.getHeight());
    for (int y = 0; y < parts.getHeight(); y += 3)
      for (int x = 0; x < parts.getWidth(); x += 4) {
        JuceCanvas canvas(parts, scale, {x, y, 4, 3});
        painting(canvas);
      }
    for (int y = 0; y < whole.getHeight(); ++y)
      for (int x = 0; x < whole.getWidth(); ++x) {
        const juce::Colour one = whole.getPixelAt(x, y), other = parts.getPixelAt(x, y);
        EXPECT_NEAR(one.getRed(), other.getRed(), 2) << x << ", " << y << " at scale " << scale;
        EXPECT_NEAR(one.getBlue(), other.getBlue(), 2) << x << ", " << y << " at scale " << scale;
      }
  }
}

TEST(JuceCanvas, aClipWithinAClipNeverGetsLarger) {
  const juce::Image image = paint(1, {30, 30}, [](JuceCanvas& c) {
    c.clip({5, 5, 10, 10});
    c.clip({0, 8, 30, 20});
    c.fillRect({0, 0, 30, 30}, Color::white());
    c.fillEllipse({-50, -50, 130, 130}, Color::white());
  });
  EXPECT_EQ(ink(image), juce::Rectangle<int>(5, 8, 10, 7));
}

TEST(JuceCanvas, leavesEverythingOutsideItsClipAsItWas) {
  juce::Image image = juce_backend::makePicture(20, 20);
  JuceCanvas canvas(image, 1, {5, 5, 10, 10});
  canvas.fillRect({0, 0, 20, 20}, Color::white());
  canvas.fillEllipse({-40, -40, 100, 100}, Color::white());
  canvas.drawText("WWWWW", font, {0, 0, 20, 20}, platform::TextAlignment::left, Color::white(), 1);
  EXPECT_EQ(ink(image), juce::Rectangle<int>(5, 5, 10, 10));
}

TEST(JuceCanvas, aGradientGoesFromItsFirstToItsLastStop) {
  const platform::Paint paintStops({0, 0}, {0, 100},
                                   {{0, Color::rgb(0xff0000)}, {1, Color::rgb(0x0000ff)}});
  const juce::Image image = paint(1.5, {10, 100}, [&](JuceCanvas& c) {
    c.fillRect({0, 0, 10, 100}, paintStops);
  });
  EXPECT_GT(image.getPixelAt(5, 1).getRed(), 245);
  EXPECT_GT(image.getPixelAt(5, 148).getBlue(), 245);
  EXPECT_NEAR(image.getPixelAt(5, 75).getRed(), 128, 6);
  const platform::Paint across({10, 0}, {90, 0},
                               {{0, Color::rgb(0)}, {0.25, Color::white()}, {1, Color::rgb(0)}});
  const juce::Image level = paint(1, {100, 4}, [&](JuceCanvas& c) {
    c.fillRect({0, 0, 100, 4}, across);
  });
  for (const auto& [x, red] : {std::pair{2, 0}, {20, 134}, {29, 249}, {60, 126}, {98, 0}})
    EXPECT_NEAR(level.getPixelAt(x, 2).getRed(), red, 8) << x;
}

TEST(JuceCanvas, curvesShowNoCornersHoweverLarge) {
  const std::pair<const char*, std::function<void(JuceCanvas&)>> cases[] = {
      {"ellipse",
       [](JuceCanvas& c) {
         c.fillEllipse({10, 10, 180, 180}, Color::white());
       }},
      {"rounded",
       [](JuceCanvas& c) {
         c.fillRoundedRect({10, 10, 180, 180}, 90, Color::white());
       }},
      {"too round",
       [](JuceCanvas& c) {
         c.fillRoundedRect({10, 10, 180, 180}, 500, Color::white());
       }},
      {"dot",
       [](JuceCanvas& c) {
         c.strokePath(line({100, 100}, {100, 100}), {180}, Color::white());
       }},
  };
  for (const auto& [name, painting] : cases) {
    const juce::Image image = paint(2, {200, 200}, painting);
    for (int y = 0; y < 400; ++y)
      for (int x = 0; x < 400; ++x) {
        const double outside = std::hypot(x + 0.5 - 200, y + 0.5 - 200) - 180;
        const int red = image.getPixelAt(x, y).getRed();
        ASSERT_TRUE(std::fabs(outside) < 0.9 || std::abs(red - (outside < 0 ? 255 : 0)) < 25)
            << name << " at " << x << ", " << y;
      }
  }
  platform::Path bow;
  bow.moveTo({0, 100});
  bow.quadTo({100, -100}, {200, 100});
  const juce::Image image =
      paint(2, {200, 120}, [&](JuceCanvas& c) { c.fillPath(bow, Color::white()); });
  for (int x = 60; x < 340; ++x) {
    const double share = (x + 0.5) / 400, top = 2 * (100 - 400 * share * (1 - share));
    if (top < 5) continue;
    EXPECT_LT(image.getPixelAt(x, static_cast<int>(top - 4)).getRed(), 30) << x;
    EXPECT_GT(image.getPixelAt(x, static_cast<int>(top + 4)).getRed(), 225) << x;
  }
}

TEST(JuceCanvas, linesLieOnTheirPathsAndAreNeverTooThinToSee) {
  using Cap = platform::StrokeStyle::Cap;
  platform::Path square, explicitEnd;
  square.addRect({10, 10, 10, 10});
  explicitEnd.moveTo({10, 10});
  for (const platform::Point corner : {platform::Point{20, 10}, {20, 20}, {10, 20}, {10, 10}})
    explicitEnd.lineTo(corner);
  explicitEnd.close();
  const std::tuple<const char*, platform::Path, platform::StrokeStyle, juce::Rectangle<int>>
      cases[] = {
          {"level", line({5, 10}, {25, 10}), {4, Cap::butt}, {5, 8, 20, 4}},
          {"upright", line({10, 5}, {10, 25}), {4, Cap::butt}, {8, 5, 4, 20}},
          {"round", line({5, 10}, {25, 10}), {4, Cap::round}, {3, 8, 24, 4}},
          {"backwards", line({25, 10}, {5, 10}), {4, Cap::round}, {3, 8, 24, 4}},
          {"butt point", line({5, 10}, {5, 10}), {4, Cap::butt}, {}},
          {"hairline", line({5, 10}, {25, 10}), {0.1, Cap::butt}, {5, 10, 20, 1}},
          {"closed", square, {4, Cap::butt}, {8, 8, 14, 14}},
          {"closed by hand", explicitEnd, {4, Cap::butt}, {8, 8, 14, 14}},
      };
  for (const auto& [name, path, style, place] : cases) {
    const auto stroke = [&, &path = path, &style = style](JuceCanvas& c) {
      c.strokePath(path, style, Color::white());
    };
    EXPECT_EQ(ink(paint(1, {30, 30}, stroke)), place) << name;
    EXPECT_EQ(paint(1, {30, 30}, stroke).getPixelAt(15, 15), juce::Colours::black) << name;
    if (place.getHeight() < 2) continue;
    EXPECT_EQ(ink(paint(2, {30, 30}, stroke)), place * 2) << name << " at scale 2";
  }
  platform::Path corner;
  corner.moveTo({5, 10});
  corner.lineTo({20, 10});
  corner.lineTo({20, 25});
  const juce::Image round = paint(1, {30, 30}, [&](JuceCanvas& c) {
    c.strokePath(corner, {8, Cap::butt}, Color::white());
  });
  EXPECT_EQ(round.getPixelAt(23, 6), juce::Colours::black) << "joins are round";
  EXPECT_EQ(round.getPixelAt(21, 7), juce::Colours::white);
  EXPECT_EQ(ink(paint(1, {30, 30},
                      [](JuceCanvas& c) {
                        c.strokeRoundedRect({5, 5, 20, 10}, 0, 0.1, Color::white());
                      })),
            juce::Rectangle<int>(5, 5, 20, 10));
}

TEST(JuceCanvas, afterAClosedPieceALineGoesOnFromItsStart) {
  platform::Path path;
  path.moveTo({5, 5});
  path.lineTo({25, 5});
  path.lineTo({25, 15});
  path.close();
  path.lineTo({5, 25});
  const juce::Image image = paint(1, {30, 30}, [&](JuceCanvas& c) {
    c.strokePath(path, {4, platform::StrokeStyle::Cap::butt}, Color::white());
  });
  EXPECT_EQ(image.getPixelAt(5, 22), juce::Colours::white);
  EXPECT_EQ(image.getPixelAt(17, 21), juce::Colours::black);
}

TEST(JuceCanvas, gradientsMoveAndGrowWithWhatTheyFill) {
  const platform::Paint slanted({0, 0}, {20, 10},
                                {{0, Color::rgb(0xff0000)}, {1, Color::rgb(0x0000ff)}});
  const platform::Paint there({10, 5}, {50, 25},
                              {{0, Color::rgb(0xff0000)}, {1, Color::rgb(0x0000ff)}});
  EXPECT_TRUE(areSame(paint(1, {60, 40},
                            [&](JuceCanvas& c) {
                              c.place({{10, 5}, 2});
                              c.fillRect({0, 0, 20, 10}, slanted);
                            }),
                      paint(1, {60, 40}, [&](JuceCanvas& c) {
                        c.fillRect({10, 5, 40, 20}, there);
                      })));
}

TEST(JuceCanvas, translucentColoursKeepTheirHue) {
  const juce::Image image = paint(1, {4, 4}, [](JuceCanvas& c) {
    c.fillRect({0, 0, 4, 4}, Color::white());
    c.fillEllipse({-10, -10, 24, 24}, Color::rgb(0xff8000).withAlpha(0.5f));
  });
  EXPECT_NEAR(image.getPixelAt(2, 2).getRed(), 255, 2);
  EXPECT_NEAR(image.getPixelAt(2, 2).getGreen(), 192, 2);
  EXPECT_NEAR(image.getPixelAt(2, 2).getBlue(), 128, 2);
}

TEST(JuceCanvas, lightLettersAreDenserThanDarkOnesWhicheverComeFirst) {
  juce_backend::FontBook kept;
  const auto amount = [](bool light) {
    const juce::Image image = paint(1, {80, 20}, [&](JuceCanvas& c) {
      if (!light) c.fillRect({0, 0, 80, 20}, Color::white());
      c.drawText("Resonance", font, {2, 0, 76, 20}, platform::TextAlignment::left,
                 light ? Color::white() : Color::black());
    });
    int sum = 0;
    for (int y = 0; y < 20; ++y)
      for (int x = 0; x < 80; ++x) {
        const int red = image.getPixelAt(x, y).getRed();
        sum += light ? red : 255 - red;
      }
    return sum;
  };
  const juce::SharedResourcePointer<juce_backend::FontBook> shared;
  const int light = amount(true), dark = amount(false);
  EXPECT_GT(light, dark * 1.1);
  EXPECT_EQ(amount(true), light);
  EXPECT_EQ(amount(false), dark);
}

TEST(JuceCanvas, thickLettersAreSolid) {
  const juce::Image image = paint(2, {60, 60}, [](JuceCanvas& c) {
    c.drawText("I", font.withSize(50), {0, 0, 60, 60}, platform::TextAlignment::centre,
               Color::white());
  });
  const juce::Rectangle<int> stem = ink(image).reduced(2, 4);
  ASSERT_FALSE(stem.isEmpty());
  for (int y = stem.getY(); y < stem.getBottom(); ++y)
    ASSERT_EQ(image.getPixelAt(stem.getCentreX(), y), juce::Colours::white) << y;
}

TEST(JuceCanvas, textMovesByPartsOfAPixel) {
  const auto at = [](double left) {
    return paint(1, {70, 20}, [&](JuceCanvas& c) {
      c.place({{left, 0}});
      c.drawText("I", font, {2, 2, 60, 16}, platform::TextAlignment::left, Color::rgb(0x808080));
    });
  };
  const auto middle = [](const juce::Image& image) {
    double sum = 0, moment = 0;
    for (int y = 0; y < image.getHeight(); ++y)
      for (int x = 0; x < image.getWidth(); ++x) {
        sum += image.getPixelAt(x, y).getRed();
        moment += image.getPixelAt(x, y).getRed() * x;
      }
    return moment / sum;
  };
  for (const double step : {0.25, 0.5, 0.75})
    EXPECT_NEAR(middle(at(step)) - middle(at(0)), step, 0.05);
  const juce::Image moved = at(1), still = at(0);
  for (int y = 0; y < 20; ++y)
    for (int x = 0; x < 69; ++x) ASSERT_EQ(moved.getPixelAt(x + 1, y), still.getPixelAt(x, y));
}

TEST(JuceCanvas, aTextKeepsItsSizeWhateverItsNeighboursNeedAndNeverGetsTooSmall) {
  juce_backend::FontBook fonts;
  const double width = fonts.textWidth("Resonance", font);
  const auto inRoom = [&](double room, double minimumScale) {
    return paint(2, {200, 30}, [&](JuceCanvas& c) {
      c.drawText("Resonance", font, {0, 5, room, 20}, platform::TextAlignment::left, Color::white(),
                 minimumScale);
    });
  };
  EXPECT_TRUE(areSame(inRoom(width * 0.900, 0.5), inRoom(width * 0.905, 0.5)))
      << "labels of a row that differ by a hair";
  const int smallest = ink(paint(2, {200, 30}, [](JuceCanvas& c) {
                         c.drawText("Resonance", font.withSize(12 * 0.7), {0, 5, 190, 20},
                                    platform::TextAlignment::left, Color::white());
                       })).getHeight();
  EXPECT_NEAR(ink(inRoom(width * 0.4, 0.7)).getHeight(), smallest, 1);
  const double atLeast = width * 0.7 - 3;
  EXPECT_FALSE(areSame(inRoom(atLeast, 0.7),
                       paint(2, {200, 30},
                             [&](JuceCanvas& c) {
                               c.clip({0, 0, atLeast, 30});
                               c.drawText("Resonance", font.withSize(12 * 0.7), {0, 5, 190, 20},
                                          platform::TextAlignment::left, Color::white());
                             })))
      << "a text that has not room is cut at a letter, and says so";
  const int low = ink(paint(2, {60, 30}, [](JuceCanvas& c) {
                    c.drawText("H", font.withSize(40), {0, 5, 50, 12},
                               platform::TextAlignment::left, Color::white(), 0.1);
                  })).getHeight();
  EXPECT_LT(low, 22) << "made to fit a low place rather than cut";
  EXPECT_GT(low, 12);
}

TEST(FontBook, weightsGetBolder) {
  juce_backend::FontBook fonts;
  double before = 0;
  for (const auto weight : {platform::FontWeight::extraLight, platform::FontWeight::regular,
                            platform::FontWeight::medium, platform::FontWeight::semiBold}) {
    const platform::Font face{weight, 40, false};
    const juce::Image image = paint(1, {200, 60}, [&](JuceCanvas& c) {
      c.drawText("HIHI", face, {0, 0, 200, 60}, platform::TextAlignment::left, Color::white());
    });
    double sum = 0;
    for (int y = 0; y < 60; ++y)
      for (int x = 0; x < 200; ++x) sum += image.getPixelAt(x, y).getRed();
    EXPECT_GT(sum, before * 1.03) << static_cast<int>(weight);
    before = sum;
  }
}

TEST(FontBook, aCutTextEndsInAnEllipsisWithoutAGapBeforeIt) {
  juce_backend::FontBook fonts;
  const double room = fonts.textWidth("ab ", font) + fonts.textWidth("\u2026", font) + 0.01;
  const juce_backend::GlyphLine cut = fonts.layOutTruncated("ab cdefgh", font, 12, room);
  ASSERT_EQ(cut.glyphs.size(), 3u);
  EXPECT_EQ(cut.glyphs.back().character, U'\u2026');
  EXPECT_NEAR(cut.glyphs.back().x, fonts.textWidth("ab", font), 0.01);
  EXPECT_TRUE(fonts.layOutTruncated("ab cdefgh", font, 12, 2).glyphs.empty()) << "no room at all";
}

TEST(FontBook, tabularFiguresStandInTheMiddleOfTheirPlaces) {
  juce_backend::FontBook fonts;
  const platform::Font tabular{platform::FontWeight::regular, 12, true};
  const juce_backend::GlyphLine line = fonts.layOut("1", tabular, 12);
  const double spare = line.width - fonts.textWidth("1", font);
  ASSERT_GT(spare, 0.5);
  EXPECT_NEAR(line.glyphs[0].x, spare / 2, 0.01);
}

TEST(FontBook, anEmIsAsLargeAsItsPointSizeSays) {
  juce_backend::FontBook fonts;
  EXPECT_NEAR(fonts.textWidth("\u2003", font), 12, 0.01);
  EXPECT_NEAR(fonts.layOut("\u2003", font, 30).width, 30, 0.01);
}

TEST(GlyphMasks, areNotKeptWithoutEnd) {
  juce::Path outline;
  outline.addRectangle(0, 0, 1, 1);
  juce_backend::GlyphMasks masks;
  const std::weak_ptr<const juce_backend::CoverageMask> first = masks.mask(outline, 1, 0, 1);
  EXPECT_EQ(masks.mask(outline, 1, 0, 1), first.lock());
  for (int i = 0; i < 5000; ++i) masks.mask(outline, 1, 0, 2 + static_cast<float>(i));
  EXPECT_TRUE(first.expired());
}

TEST(FontBook, aCharacterThatTheFamilyLacksComesFromAnotherTypeface) {
  juce_backend::FontBook fonts;
  const auto outlineOf = [&](const char* text) {
    const juce_backend::GlyphLine line = fonts.layOut(text, font, 12);
    return line.glyphs.empty() ? juce::Path() : *line.glyphs[0].outline;
  };
  const juce::Path missing = outlineOf("\uffff");
  const char* candidates[] = {"\u4e2d", "\u2603", "\u265e", "\u0905", "\u3042", "\u0e01"};
  int found = 0;
  for (const char* text : candidates) {
    const juce::juce_wchar code = juce::String::fromUTF8(text)[0];
    bool isInstalled = false;
    for (const juce::String& family : juce::Font::findAllTypefaceNames()) {
      const juce::Typeface::Ptr face = juce::Font(family, "Regular", 12.0f).getTypefacePtr();
      juce::Path lacking, outline;
      face->getOutlineForGlyph(0xffff, lacking);
      isInstalled |= face->getOutlineForGlyph(static_cast<int>(code), outline) &&
                     !outline.isEmpty() && outline != lacking;
    }
    if (!isInstalled) continue;
    ++found;
    EXPECT_FALSE(outlineOf(text) == missing) << text;
  }
  if (found == 0) GTEST_SKIP() << "no typeface of this machine has any of them";
}

TEST(Picture, isOpaqueBlackAndCopiesWhole) {
  juce::Image picture = juce_backend::makePicture(0, -3);
  EXPECT_EQ(picture.getBounds(), juce::Rectangle<int>(1, 1));
  EXPECT_EQ(picture.getPixelAt(0, 0).getARGB(), 0xff000000u);
  picture = juce_backend::makePicture(7, 5);
  picture.setPixelAt(6, 4, juce::Colours::red);
  const juce::Image copy = picture.createCopy();
  picture.setPixelAt(6, 4, juce::Colours::blue);
  EXPECT_EQ(copy.getPixelAt(6, 4), juce::Colours::red);
  EXPECT_EQ(copy.getPixelAt(0, 0), juce::Colours::black);
  EXPECT_EQ(picture.getClippedImage({5, 3, 2, 2}).getPixelAt(1, 1), juce::Colours::blue);
}

TEST(JuceCanvas, emptyShapesPaintNothing) {
  const juce::Image image = paint(1, {20, 20}, [](JuceCanvas& c) {
    c.fillRect({5, 5, 0, 5}, Color::white());
    c.fillRoundedRect({5, 5, 5, -1}, 3, Color::white());
    c.fillEllipse({5, 5, -2, 5}, Color::white());
    c.fillPath({}, Color::white());
    c.strokePath(line({1, 1}, {9, 9}), {0}, Color::white());
    c.drawText("", font, {0, 0, 20, 20}, platform::TextAlignment::left, Color::white());
    c.drawText("x", font, {0, 0, 0, 20}, platform::TextAlignment::left, Color::white());
    c.restore();
  });
  EXPECT_TRUE(ink(image).isEmpty());
}

}  // namespace
