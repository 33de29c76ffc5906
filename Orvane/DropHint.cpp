#include "Orvane/DropHint.h"

#include <algorithm>
#include <utility>

#include "KestroUI/Theme.h"
#include "Orvane/OverlayStyle.h"

namespace orvane {

namespace Theme = kestroui::Theme;

DropHint::DropHint() {
  setUserInteractionEnabled(false);
  setBackgroundColor(OverlayStyle::lightBackdropColor());
}

void DropHint::show(toolkit::View& root, std::string text) {
  text_ = std::move(text);
  root.addSubview(*this);
  setFrame(root.bounds());
  setNeedsDisplay();
}

void DropHint::paint(platform::Canvas& canvas) {
  const double unit = OverlayStyle::textSizeIn(bounds());
  canvas.strokeRoundedRect(bounds().inset(unit / 2, unit / 2), OverlayStyle::cornerRadius(), 2,
                           Theme::accent);
  const platform::Font font = Theme::regularFont.withSize(unit * 1.2);
  const double height = font.lineHeight() + unit * 1.6;
  const double width =
      std::min(bounds().width - 4 * unit, canvas.textWidth(text_, font) + 4 * unit);
  const platform::Rect box{(bounds().width - width) / 2, (bounds().height - height) / 2, width,
                           height};
  OverlayStyle::paintPanel(canvas, box, Theme::accent);
  canvas.drawText(text_, font, box.inset(unit, 0), platform::TextAlignment::centre, Theme::text);
}

}  // namespace orvane
