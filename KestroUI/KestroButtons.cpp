#include "KestroUI/KestroButtons.h"

#include <algorithm>

#include "KestroUI/Icons.h"

namespace kestroui {

using platform::Rect;

KestroButton::KestroButton() { setFont(Theme::smallTitleFont); }

void KestroButton::setAccentColor(platform::Color color) {
  if (color == accentColor_) return;
  accentColor_ = color;
  setNeedsDisplay();
}

void KestroButton::firstResponderChanged() { setNeedsDisplay(); }

platform::Color KestroButton::stateColor(platform::Color color) const {
  if (!isEnabled()) return color.withAlpha(color.alpha * 0.35f);
  if (isHighlighted()) return color.mixed(Theme::accent, 0.45f);
  return isHovered() ? color : color.mixed(Theme::lightGrey, 0.3f);
}

void KestroButton::paintState(platform::Canvas& canvas, double radius, const platform::Rect& face) {
  if (isEnabled() && (isHovered() || isHighlighted()))
    canvas.fillRoundedRect(face, radius, Theme::white.withAlpha(isHighlighted() ? 0.14f : 0.07f));
  if (isFirstResponder())
    canvas.strokeRoundedRect(face.inset(0.5, 0.5), radius, 1, Theme::accent.withAlpha(0.8f));
}

SelectableButton::SelectableButton() {
  setAccentColor(Theme::accent);
  setTitleColor(Theme::text);
}

void SelectableButton::paint(platform::Canvas& canvas) {
  const platform::Rect place = bounds();
  if (!(place.width >= 4) || !(place.height >= 4)) return;
  if (isSelected())
    canvas.fillRect(place, platform::Paint({0, place.y}, {0, place.maxY()},
                                           {{0, accentColor().withAlpha(0.0f)},
                                            {1, accentColor().withAlpha(0.13f)}}));
  paintState(canvas, 0);
  const double rule = std::clamp(place.height * 0.06, 1.5, 3.0);
  canvas.fillRect({place.x, place.maxY() - Theme::lineWidth, place.width, Theme::lineWidth},
                  Theme::line.withAlpha(0.6f));
  if (isSelected())
    canvas.fillRect({place.x, place.maxY() - rule, place.width, rule}, accentColor());
  const double size = std::min(font().pointSize, place.height * 0.5);
  const platform::Color color =
      isSelected() ? titleColor() : stateColor(isHovered() ? titleColor() : Theme::textDim);
  canvas.drawText(title(), font().withSize(size), place.inset(std::min(8.0, place.width * 0.05), 0),
                  platform::TextAlignment::centre, color);
}

void ImageButton::paint(platform::Canvas& canvas) {
  const Rect whole = bounds();
  if (!(whole.width >= 4) || !(whole.height >= 4)) return;
  const double radius = Theme::cornerRadius + 1;
  const platform::Color color = stateColor(titleColor());
  if (title().empty()) {
    paintState(canvas, radius);
    const double margin = std::min(whole.width, whole.height) * 0.12;
    image().draw(canvas, whole.inset(margin, margin), color);
    return;
  }
  Rect picture{whole.x, whole.y, 0, whole.height};
  if (!image().isEmpty()) {
    const double natural =
        image().size().height > 0 ? image().size().width / image().size().height : 1;
    const double height = whole.height * 0.64;
    const double width = std::min(height * natural, whole.width * 0.5);
    const double margin = (whole.height - height) / 2;
    picture = {whole.x + margin, whole.y + margin, width, height};
  }
  const double gap = std::min(8.0, (whole.width - picture.maxX()) * 0.06);
  const Rect place{picture.maxX() + gap, whole.y, whole.maxX() - picture.maxX() - 2 * gap,
                   whole.height};
  const platform::Font titleFont = font().withSize(std::min(font().pointSize, place.height * 0.62));
  const double textWidth = std::min(canvas.textWidth(title(), titleFont), place.width);
  // A wide frame is easy to hit; what shows that it is hit goes no farther than the title.
  paintState(canvas, radius,
             Rect{whole.x, whole.y, place.x + textWidth + 2 * gap - whole.x, whole.height}
                 .intersection(whole)
                 .inset(0, whole.height * 0.06));
  image().draw(canvas, picture, color);
  if (place.width > 4 && titleFont.pointSize >= 4)
    canvas.drawText(title(), titleFont, place, platform::TextAlignment::left, color);
}

void SimpleButton::setTitleMargin(double margin) {
  if (margin == titleMargin_) return;
  titleMargin_ = margin;
  setNeedsDisplay();
}

void SimpleButton::paint(platform::Canvas& canvas) {
  Rect place = bounds();
  if (!(place.width >= 4) || !(place.height >= 4)) return;
  const bool bordered = layer().borderWidth() > 0;
  const double radius = bordered ? layer().cornerRadius() : Theme::cornerRadius + 1;
  if (!bordered) {
    canvas.fillRoundedRect(place, radius,
                           isEnabled() ? Theme::surface : Theme::surface.mixed(Theme::panel, 0.6f));
    canvas.strokeRoundedRect(place.inset(0.5, 0.5), radius, 1, Theme::line);
  }
  paintState(canvas, radius);
  const platform::Color color = stateColor(titleColor());
  place = place.inset(std::max(titleMargin_, std::min(8.0, place.width * 0.06)), 0);
  if (!image().isEmpty()) {
    const double side = std::min(place.height * 0.6, place.width);
    const bool alone = title().empty();
    // As far from the edge as from top and bottom.
    const double x = alone ? place.midX() - side / 2 : std::max(place.x, (place.height - side) / 2);
    image().draw(canvas, {x, place.midY() - side / 2, side, side}, color);
    if (alone) return;
    place = {x + side + 4, place.y, place.maxX() - x - side - 4, place.height};
  }
  const double size = std::min(font().pointSize, place.height * 0.62);
  if (place.width > 4 && size >= 4)
    canvas.drawText(title(), font().withSize(size), place, platform::TextAlignment::centre, color);
}

void ArrowButton::paint(platform::Canvas& canvas) {
  const double side = std::min(bounds().width, bounds().height) * 0.42;
  if (!(side >= 2)) return;
  paintState(canvas, Theme::cornerRadius + 1);
  const auto centre = bounds().centre();
  const platform::Rect place{centre.x - side / 2, centre.y - side / 2, side, side};
  const platform::Path shape = direction_ == Direction::left    ? Icons::chevronLeft()
                               : direction_ == Direction::right ? Icons::chevronRight()
                                                                : Icons::chevronDown();
  path_ = Icons::fitted(shape, place);
  canvas.strokePath(path_, {std::clamp(side * 0.14, 1.25, 3.0)}, stateColor(titleColor()));
}

StarButton::StarButton() { setAccentColor(platform::Color::rgb(0xf2c14e)); }

void StarButton::paint(platform::Canvas& canvas) {
  const double side = std::min({bounds().width, bounds().height, 48.0}) * 0.52;
  if (!(side >= 3)) return;
  const auto centre = bounds().centre();
  path_ = Icons::fitted(Icons::star(), {centre.x - side / 2, centre.y - side / 2, side, side});
  if (isSelected()) {
    canvas.fillPath(path_, stateColor(accentColor()));
    return;
  }
  const bool near = isHovered() || isHighlighted() || isFirstResponder();
  canvas.strokePath(path_, {std::max(1.0, side * 0.07)},
                    near ? accentColor() : Theme::textDim.withAlpha(0.7f));
}

void DiceButton::setHighlighted(bool highlighted) {
  // 5, 1, 3, 2, 6, 4 and again: each throw shows another number than the one before.
  if (highlighted && !isHighlighted()) pips_ = pips_ * 3 % 7;
  KestroButton::setHighlighted(highlighted);
}

void DiceButton::paint(platform::Canvas& canvas) {
  const double side = std::min(bounds().width, bounds().height) * 0.5;
  if (!(side >= 4)) return;
  paintState(canvas, Theme::cornerRadius + 1);
  const auto centre = bounds().centre();
  const platform::Color color = stateColor(titleColor());
  const platform::Rect die{centre.x - side / 2, centre.y - side / 2, side, side};
  canvas.strokeRoundedRect(die, side * 0.2, std::max(1.25, side * 0.08), color);
  const double radius = side * 0.085, far = side * 0.24;
  const auto pip = [&](double dx, double dy) {
    canvas.fillEllipse(
        {centre.x + dx * far - radius, centre.y + dy * far - radius, 2 * radius, 2 * radius},
        color);
  };
  if (pips_ % 2 == 1) pip(0, 0);
  if (pips_ >= 2) {
    pip(-1, -1);
    pip(1, 1);
  }
  if (pips_ >= 4) {
    pip(1, -1);
    pip(-1, 1);
  }
  if (pips_ == 6) {
    pip(-1, 0);
    pip(1, 0);
  }
}

}  // namespace kestroui
