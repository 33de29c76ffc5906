#pragma once

namespace platform {

enum class FontWeight { extraLight, regular, medium, semiBold };

/// A font of the editor's one family; backends choose the typeface (Inter, else the system's sans).
struct Font {
  FontWeight weight = FontWeight::regular;
  /// Height of the em square in points.
  double pointSize = 12;
  /// Digits of one width, for numbers that change while they are read.
  bool tabularFigures = false;

  Font withSize(double size) const { return {weight, size, tabularFigures}; }
  /// Distance from one base line to the next in points.
  double lineHeight() const { return pointSize * 1.2; }

  friend bool operator==(const Font&, const Font&) = default;
};

enum class TextAlignment { left, centre, right };

}  // namespace platform
