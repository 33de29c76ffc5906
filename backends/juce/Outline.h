#pragma once

#include <juce_graphics/juce_graphics.h>

#include <vector>

#include "platform/Canvas.h"

namespace juce_backend {

/// Turns paths into polygons of pixels, fine enough that no corner shows, and strokes into the
/// polygons around them. Keeps its memory from one call to the next; the answer of a call is valid
/// until the following one.
class Outline {
 public:
  /// The inside of `path`, placed so.
  const juce::Path& filled(const platform::Path& path, const platform::Placement& placement);
  /// The line of `width` pixels along `path`, placed so, with round joins.
  const juce::Path& stroked(const platform::Path& path, const platform::Placement& placement,
                            double width, platform::StrokeStyle::Cap cap);
  const juce::Path& ellipse(juce::Rectangle<float> area);
  /// The corner radius is limited to half of the shorter side.
  const juce::Path& roundedRect(juce::Rectangle<float> area, double radius);
  /// Between a rounded rectangle and a smaller one `thickness` within it.
  const juce::Path& roundedFrame(juce::Rectangle<float> area, double radius, int thickness);

 private:
  struct Run {
    std::size_t first, count;
    bool isClosed;
  };

  void flatten(const platform::Path& path, const platform::Placement& placement);
  void addPoint(platform::Point point);
  void endRun(bool isClosed);
  void strokeRun(const Run& run, double half, platform::StrokeStyle::Cap cap);
  void addJoin(platform::Point at, platform::Point before, platform::Point after, double half);
  void addRoundedRect(juce::Rectangle<float> area, double radius, bool isReversed);
  void emit(const std::vector<platform::Point>& points, bool isReversed);

  std::vector<platform::Point> points_;
  std::vector<Run> runs_;
  std::vector<platform::Point> left_, right_;
  juce::Path result_;
};

}  // namespace juce_backend
