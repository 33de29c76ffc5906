#include "Orvane/OverlayStyle.h"

#include <algorithm>

#include "KestroUI/Theme.h"

namespace orvane::OverlayStyle {

namespace Theme = kestroui::Theme;

platform::Color backdropColor() { return Theme::background.withAlpha(0.8f); }

double cornerRadius() { return Theme::cornerRadius * 3; }

void applyPanel(toolkit::Layer& panel) {
  panel.setBackgroundColor(Theme::panel);
  panel.setBorderColor(Theme::line);
  panel.setBorderWidth(1);
  panel.setCornerRadius(cornerRadius());
}

platform::Rect panelIn(const platform::Rect& bounds) {
  constexpr double share = 0.8;
  const double top = bounds.height * menuBarShare + 2;
  return {bounds.width * (1 - share) / 2, top, bounds.width * share,
          std::max(0.0, bounds.height - top - bounds.height * 0.02)};
}

}  // namespace orvane::OverlayStyle
