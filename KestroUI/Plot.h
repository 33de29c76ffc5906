#pragma once

#include <string_view>
#include <vector>

#include "KestroUI/GestureControl.h"
#include "platform/Canvas.h"

namespace kestroui {

/// What the faces that draw a shape have in common: the dark ground, its grid, the curve with a
/// soft fill and the handles. Each paints in the coordinates of the view that calls it.
namespace Plot {

enum class HandleState { resting, near, held };

/// How a face shows its control's states.
struct Ground {
  bool isFocused = false;
  bool isMuted = false;
  bool isHovered = false;
};

/// The ground of a face, with a border that tells the states apart.
void paintGround(platform::Canvas& canvas, const platform::Rect& face, platform::Color accent,
                 const Ground& ground);
/// The part of `face` that the shape takes, so that handles on its edge stay inside.
platform::Rect area(const platform::Rect& face);

/// Thin lines at shares from 0 to 1 of the width (from the left) and of the height (from below).
void paintGrid(platform::Canvas& canvas, const platform::Rect& plot,
               const std::vector<double>& across, const std::vector<double>& up,
               float strength = 0.4f);

/// A curve from the left to the right and a fill that fades from it to `base`, a y in points.
void paintCurve(platform::Canvas& canvas, const platform::Path& curve, const platform::Rect& plot,
                double base, platform::Color color, double lineWidth = 1.75);
/// A smooth curve through `points`, ascending in x, that never leaves the range of two neighbours.
platform::Path smoothCurve(const std::vector<platform::Point>& points);

/// The radius of a handle on a face of this size, in points.
double handleRadius(const platform::Size& face);
void paintHandle(platform::Canvas& canvas, platform::Point place, double radius,
                 platform::Color color, HandleState state);
/// Where a live value stands, with a thread from the handle that it belongs to.
void paintLive(platform::Canvas& canvas, platform::Point from, platform::Point live, double radius,
               platform::Color color);

/// A line of text in the face's upper corner, left out where it would not be readable.
void paintReadout(platform::Canvas& canvas, const platform::Rect& face, std::string_view text,
                  double faceScale);

/// From the share of the width of an axis that shows pitch from 20 Hz to 20 kHz, and back.
double hertzAt(double share);
double shareOfHertz(double hertz);

}  // namespace Plot

}  // namespace kestroui
