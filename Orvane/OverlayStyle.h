#pragma once

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
double cornerRadius();
void applyPanel(toolkit::Layer& panel);
/// Where the panel of an overlay as large as the editor stands: below the menu bar, in points.
platform::Rect panelIn(const platform::Rect& bounds);

}  // namespace OverlayStyle

}  // namespace orvane
