#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Canvas.h"

namespace headless {

/// A canvas that writes down what is painted on it: for tests of what a view shows. Texts are as
/// wide as if every character took half of the font's size.
class RecordingCanvas : public platform::Canvas {
 public:
  enum class Operation {
    save,
    restore,
    place,
    clip,
    fillRect,
    fillRoundedRect,
    strokeRoundedRect,
    fillEllipse,
    fillPath,
    strokePath,
    drawText,
  };

  struct Call {
    Operation operation;
    /// The rectangle given, or the bounds of the path given, on the canvas: placed, not clipped.
    /// Empty for save, restore and place.
    platform::Rect area;
    /// Flat colour, or the first of the gradient.
    platform::Color color;
    /// What drawText was given.
    std::string text;
  };

  const std::vector<Call>& calls() const { return calls_; }
  std::size_t count(Operation operation) const;
  /// Texts in the order in which they were drawn.
  std::vector<std::string> texts() const;
  /// Smallest rectangle around all that was painted inside the clips.
  platform::Rect paintedBounds() const { return paintedBounds_; }
  /// Saves that have no restore yet; negative when there were too many restores.
  int depth() const { return depth_; }
  void clear();

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
                double minimumScale) override;
  double textWidth(std::string_view text, const platform::Font& font) override {
    return widthOfText(text, font);
  }
  /// Half of the font's size for each code point, so that no font is needed.
  static double widthOfText(std::string_view text, const platform::Font& font);

 private:
  struct State {
    platform::Placement placement;
    platform::Rect clip{-1e9, -1e9, 2e9, 2e9};
  };

  void painted(Operation operation, const platform::Rect& rect, platform::Color color,
               std::string_view text = {});

  std::vector<Call> calls_;
  State state_;
  std::vector<State> saved_;
  platform::Rect paintedBounds_;
  int depth_ = 0;
};

}  // namespace headless
