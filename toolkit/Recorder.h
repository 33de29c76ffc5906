#pragma once

#include <functional>
#include <string_view>
#include <vector>

#include "platform/Canvas.h"
#include "toolkit/DisplayList.h"

namespace toolkit {

/// The canvas that views paint on: it keeps the calls in a display list. What cannot show (clear
/// colours, empty or not finite shapes, whatever lies outside the view or the clip) is left out,
/// and restores that the painter forgot are added.
class Recorder final : public platform::Canvas {
 public:
  using TextMeasurer = std::function<double(std::string_view, const platform::Font&)>;

  explicit Recorder(TextMeasurer measurer) : measurer_(std::move(measurer)) {}

  /// Starts a new list for a view of this size.
  void begin(const platform::Size& size);
  /// Valid until the next begin.
  const DisplayList& finish();

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
  double textWidth(std::string_view text, const platform::Font& font) override;
  bool intersectsClip(const platform::Rect& rect) const override;

 private:
  using Op = DisplayList::Op;
  struct State {
    platform::Placement placement;
    /// In the view's coordinates.
    platform::Rect clip;
  };

  /// Counts `area` (in the current coordinates) as painted; false when nothing of it shows.
  bool cover(const platform::Rect& area);
  void add(Op op, std::uint32_t item = 0, std::uint32_t paint = 0);
  void addRect(const platform::Rect& rect);
  std::uint32_t addPaint(const platform::Paint& paint);
  std::uint32_t addPath(const platform::Path& path);

  TextMeasurer measurer_;
  DisplayList list_;
  platform::Rect bounds_;
  State state_;
  std::vector<State> saved_;
};

}  // namespace toolkit
