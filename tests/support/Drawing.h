#pragma once

#include <string>
#include <vector>

#include "tests/support/WindowBench.h"

namespace support {

/// What one view paints, in its own coordinates, shape by shape.
///
///     const support::Drawing picture(slider);
///     EXPECT_EQ(picture.find(Drawing::Kind::ellipse, Theme::white)->centre(), ...);
class Drawing : public LogCanvas {
 public:
  enum class Kind { rect, rounded, border, ellipse, fill, stroke, text };

  struct Shape {
    Kind kind;
    /// That of a path is its bounds.
    platform::Rect area;
    /// Flat, or the first of a gradient.
    platform::Color color;
    /// Of a path.
    std::vector<platform::Point> points{};
    std::string text{};
  };

  explicit Drawing(toolkit::View& view) { view.paint(*this); }

  std::vector<Shape> shapes;

  /// Those of a kind in one colour, whatever its alpha.
  std::vector<Shape> all(Kind kind, platform::Color color) const {
    std::vector<Shape> found;
    for (const Shape& shape : shapes)
      if (shape.kind == kind && shape.color.withAlpha(1) == color.withAlpha(1))
        found.push_back(shape);
    return found;
  }
  std::vector<Shape> all(Kind kind) const {
    std::vector<Shape> found;
    for (const Shape& shape : shapes)
      if (shape.kind == kind) found.push_back(shape);
    return found;
  }
  bool says(const std::string& text) const {
    for (const Shape& shape : shapes)
      if (shape.kind == Kind::text && shape.text == text) return true;
    return false;
  }
  /// The curve of a face: of its strokes the one with the most points.
  std::vector<platform::Point> curve() const {
    std::vector<platform::Point> longest;
    for (const Shape& shape : all(Kind::stroke))
      if (shape.points.size() > longest.size()) longest = shape.points;
    return longest;
  }

  void fillRect(const platform::Rect& r, const platform::Paint& p) override {
    add(Kind::rect, r, p);
  }
  void fillRoundedRect(const platform::Rect& r, double, const platform::Paint& p) override {
    add(Kind::rounded, r, p);
  }
  void strokeRoundedRect(const platform::Rect& r, double, double,
                         const platform::Paint& p) override {
    add(Kind::border, r, p);
  }
  void fillEllipse(const platform::Rect& r, const platform::Paint& p) override {
    add(Kind::ellipse, r, p);
  }
  void fillPath(const platform::Path& path, const platform::Paint& p) override {
    add(Kind::fill, path.bounds(), p);
    shapes.back().points = path.points();
  }
  void strokePath(const platform::Path& path, const platform::StrokeStyle&,
                  const platform::Paint& p) override {
    add(Kind::stroke, path.bounds(), p);
    shapes.back().points = path.points();
  }
  void drawText(std::string_view text, const platform::Font&, const platform::Rect& r,
                platform::TextAlignment, platform::Color color, double) override {
    add(Kind::text, r, color);
    shapes.back().text = text;
  }

 private:
  void add(Kind kind, const platform::Rect& area, const platform::Paint& paint) {
    shapes.push_back({kind, area, paint.stops.empty() ? paint.color : paint.stops[0].color});
  }
};

}  // namespace support
