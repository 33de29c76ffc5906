#pragma once

#include "platform/Canvas.h"
#include "platform/Color.h"
#include "platform/Geometry.h"
#include "toolkit/Layer.h"

namespace orvane {

/// What the overlays have in common.
namespace OverlayStyle {

/// Of the editor's height. The menu bar stays in reach while an overlay is shown.
inline constexpr double menuBarShare = 0.104;

/// Dims what an overlay covers.
platform::Color backdropColor();
/// The same for one beside which the editor is still read.
platform::Color lightBackdropColor();
double cornerRadius();
/// A panel as a layer, and as it is painted: both look alike.
void applyPanel(toolkit::Layer& panel);
void paintPanel(platform::Canvas& canvas, const platform::Rect& panel, platform::Color border);
/// Of an overlay that has no bar to measure by: the size of its texts, in points.
double textSizeIn(const platform::Rect& bounds);
/// Where the panel of an overlay as large as the editor stands: below the menu bar, in points.
platform::Rect panelIn(const platform::Rect& bounds);

}  // namespace OverlayStyle

}  // namespace orvane
