#include "Orvane/OverlayStyle.h"

#include <algorithm>

#include "KestroUI/Theme.h"

namespace orvane {

namespace OverlayStyle {

namespace Theme = kestroui::Theme;

platform::Color backdropColor() { return Theme::background.withAlpha(0.8f); }

platform::Color lightBackdropColor() { return Theme::background.withAlpha(0.72f); }

double cornerRadius() { return Theme::cornerRadius * 3; }

void applyPanel(toolkit::Layer& panel) {
  panel.setBackgroundColor(Theme::panel);
  panel.setBorderColor(Theme::line);
  panel.setBorderWidth(1);
  panel.setCornerRadius(cornerRadius());
}

void paintPanel(platform::Canvas& canvas, const platform::Rect& panel, platform::Color border) {
  canvas.fillRoundedRect(panel, cornerRadius(), Theme::panel);
  canvas.strokeRoundedRect(panel.inset(0.5, 0.5), cornerRadius(), 1, border);
}

double textSizeIn(const platform::Rect& bounds) {
  return std::clamp(bounds.height * 0.022, 11.0, 22.0);
}

platform::Rect panelIn(const platform::Rect& bounds) {
  constexpr double share = 0.8;
  const double top = bounds.height * menuBarShare + 2;
  return {bounds.width * (1 - share) / 2, top, bounds.width * share,
          std::max(0.0, bounds.height - top - bounds.height * 0.02)};
}

}  // namespace OverlayStyle

}  // namespace orvane
