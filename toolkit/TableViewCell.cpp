#include "toolkit/TableViewCell.h"

namespace toolkit {

using platform::Canvas;
using platform::Color;
using platform::Rect;

TableViewCell::TableViewCell() {
  contentView_.setUserInteractionEnabled(false);
  contentView_.addSubview(textLabel_);
  addSubview(contentView_);
}

void TableViewCell::setTextInset(double points) {
  if (points == textInset_) return;
  textInset_ = points;
  setNeedsDisplay();
}

void TableViewCell::setColors(const Colors& colors) {
  colors_ = colors;
  setNeedsDisplay();
}

void TableViewCell::set(bool& state, bool value) {
  if (state == value) return;
  state = value;
  setNeedsDisplay();
}

void TableViewCell::setSelected(bool selected) { set(selected_, selected); }
void TableViewCell::setMarked(bool marked) { set(marked_, marked); }
void TableViewCell::setHighlighted(bool highlighted) { set(highlighted_, highlighted); }
void TableViewCell::setFocused(bool focused) { set(focused_, focused); }

void TableViewCell::draw(const Rect&) {
  contentView_.setFrame(bounds());
  layoutContent();
}

void TableViewCell::layoutContent() {
  textLabel_.setFrame(contentView_.bounds().inset(textInset_, 0));
}

void TableViewCell::paint(Canvas& canvas) {
  const Color ground = highlighted_ ? colors_.pressed
                       : marked_    ? colors_.marked
                       : selected_  ? colors_.selected
                                    : colors_.background;
  if (ground.alpha > 0) canvas.fillRect(bounds(), ground);
  // By which the marked ones are told from the selected one without their colour.
  if (marked_) canvas.fillRect({0, 0, 3, bounds().height}, colors_.marked.withAlpha(1));
  if (focused_) canvas.strokeRoundedRect(bounds().inset(1, 1), 2, 1, colors_.focused);
}

}  // namespace toolkit
