#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/Color.h"
#include "platform/Font.h"
#include "platform/Geometry.h"
#include "platform/Path.h"

namespace platform {

/// What fills an outline: one colour, or a linear gradient between two points.
struct Paint {
  struct Stop {
    double position = 0;
    Color color;
    friend bool operator==(const Stop&, const Stop&) = default;
  };

  Paint(Color flat) : color(flat) {}
  Paint(Point start, Point end, std::vector<Stop> gradientStops)
      : from(start), to(end), stops(std::move(gradientStops)) {}

  Color color;
  /// Gradient end points in the coordinates of the call; used only when `stops` is not empty.
  Point from, to;
  /// Positions ascend from 0 to 1.
  std::vector<Stop> stops;

  friend bool operator==(const Paint&, const Paint&) = default;
};

/// Round caps and joins by default, which is what arcs and curves want.
struct StrokeStyle {
  /// Width in points.
  double width = 1;
  enum class Cap { butt, round } cap = Cap::round;

  friend bool operator==(const StrokeStyle&, const StrokeStyle&) = default;
};

/// One drawText call that was kept. It stays where it is as long as it is not changed, so a backend
/// may leave in `cache` what it computed for it (laid-out glyphs) and find it there the next time.
struct TextRun {
  std::string text;
  Font font;
  Rect rect;
  TextAlignment alignment = TextAlignment::left;
  Color color;
  double minimumScale = 0.7;
  mutable std::shared_ptr<void> cache;
};

/// What a view paints on. The toolkit hands one to View::paint, which records; backends give one
/// that reaches the screen, an image or a log. Coordinates are points with y downwards.
class Canvas {
 public:
  virtual ~Canvas() = default;

  /// Remembers placement and clip; every save has one restore.
  virtual void save() = 0;
  virtual void restore() = 0;
  /// What follows is painted in coordinates that lie so in the current ones.
  virtual void place(const Placement& placement) = 0;
  /// Nothing outside `rect` is painted until the matching restore.
  virtual void clip(const Rect& rect) = 0;

  virtual void fillRect(const Rect& rect, const Paint& paint) = 0;
  virtual void fillRoundedRect(const Rect& rect, double radius, const Paint& paint) = 0;
  /// The line is centred on the outline.
  virtual void strokeRoundedRect(const Rect& rect, double radius, double width,
                                 const Paint& paint) = 0;
  virtual void fillEllipse(const Rect& rect, const Paint& paint) = 0;
  virtual void fillPath(const Path& path, const Paint& paint) = 0;
  virtual void strokePath(const Path& path, const StrokeStyle& style, const Paint& paint) = 0;

  /// One line of UTF-8 text, centred vertically in `rect` and never outside it: a text wider than
  /// `rect` is first set smaller, down to `minimumScale` of its size, then cut with an ellipsis.
  virtual void drawText(std::string_view text, const Font& font, const Rect& rect,
                        TextAlignment alignment, Color color, double minimumScale = 0.7) = 0;
  /// The same from a recording; for backends that keep something in `run.cache`.
  virtual void drawTextRun(const TextRun& run) {
    drawText(run.text, run.font, run.rect, run.alignment, run.color, run.minimumScale);
  }
  /// Width in points that `text` takes on one line.
  virtual double textWidth(std::string_view text, const Font& font) = 0;

  /// False when nothing painted into `rect` would show, so that it can be left out.
  virtual bool intersectsClip(const Rect& /*rect*/) const { return true; }
};

}  // namespace platform
