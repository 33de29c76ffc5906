#include "toolkit/TableView.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace toolkit {

using platform::Color;
using platform::Font;
using platform::Key;
using platform::KeyEvent;
using platform::Modifiers;
using platform::Point;
using platform::Rect;
using platform::Weak;

namespace {

/// Seconds after which a finger that stays has meant to mark a row.
constexpr double longPressTime = 0.5;

}  // namespace

TableView::TableView() {
  content().addSubview(rowViews_);
  content().addSubview(headerViews_);
  // Headers float above the rows, and what is beside them must be reached.
  headerViews_.setUserInteractionEnabled(false);
}

TableView::~TableView() = default;

void TableView::setSource(Weak<TableViewSource> source) {
  source_ = std::move(source);
  reloadData();
}

// Rows

void TableView::reloadData() {
  needsMeasure_ = true;
  selected_ = focused_ = pressed_ = std::nullopt;
  headers_.clear();
  refillCells();
}

void TableView::refillCells() {
  for (Shown& shown : shown_) retire(shown);
  shown_.clear();
  setNeedsDisplay();
}

void TableView::forEachCell(const std::function<void(IndexPath, TableViewCell&)>& show) {
  for (const Shown& shown : shown_)
    if (isRow(shown.row)) show(shown.row, *shown.cell);
  updateCellStates();
}

void TableView::measure() {
  // Rows may be a share of the table's height.
  if (!needsMeasure_ && measuredHeight_ == bounds().height) return;
  // Whoever sees the selected row goes on seeing it, at any height of the rows.
  const bool keepsSelected = !needsMeasure_ && selected_ && isInSight(*selected_, measuredHeight_);
  const double rowHeight = sections_.empty() ? 0 : sections_.front().rowHeight;
  needsMeasure_ = false;
  measuredHeight_ = bounds().height;
  sections_.clear();
  if (source_) {
    double top = 0;
    for (int i = 0, count = source_->numberOfSections(*this); i < count; ++i) {
      Section section;
      section.rows = std::max(0, source_->numberOfRowsInSection(*this, i));
      section.top = top;
      section.headerHeight = std::max(0.0, source_->heightForHeaderInSection(*this, i));
      section.rowHeight = std::max(1.0, source_->heightForRowsInSection(*this, i));
      top = section.bottom();
      sections_.push_back(section);
    }
  }
  const double offset = contentOffset();
  setContentHeight(sections_.empty() ? 0 : sections_.back().bottom());
  if (rowHeight > 0 && !sections_.empty())
    setContentOffset(offset * sections_.front().rowHeight / rowHeight);
  if (keepsSelected && !isInSight(*selected_, bounds().height)) centre(*selected_);
  setNeedsDisplay();
}

int TableView::numberOfSections() const { return static_cast<int>(sections_.size()); }

int TableView::numberOfRows(int section) const {
  return section >= 0 && section < numberOfSections()
             ? sections_[static_cast<std::size_t>(section)].rows
             : 0;
}

bool TableView::isRow(IndexPath row) const {
  return row.row >= 0 && row.row < numberOfRows(row.section);
}

int TableView::totalRows() const {
  int count = 0;
  for (const Section& section : sections_) count += section.rows;
  return count;
}

int TableView::flatIndex(IndexPath row) const {
  int index = row.row;
  for (int i = 0; i < row.section; ++i) index += numberOfRows(i);
  return index;
}

std::optional<IndexPath> TableView::rowOfFlatIndex(int index) const {
  for (int i = 0; i < numberOfSections() && index >= 0; ++i) {
    if (index < numberOfRows(i)) return IndexPath{i, index};
    index -= numberOfRows(i);
  }
  return std::nullopt;
}

Rect TableView::rectForRow(IndexPath row) const {
  if (!isRow(row)) return {};
  const Section& section = sections_[static_cast<std::size_t>(row.section)];
  return {0, section.rowTop(row.row), std::max(0.0, bounds().width - barRoom()), section.rowHeight};
}

std::optional<IndexPath> TableView::rowAt(double y) const {
  for (int i = 0; i < numberOfSections(); ++i) {
    const Section& section = sections_[static_cast<std::size_t>(i)];
    if (y < section.rowTop(0) || y >= section.bottom()) continue;
    const int row = static_cast<int>((y - section.rowTop(0)) / section.rowHeight);
    return IndexPath{i, std::min(row, section.rows - 1)};
  }
  return std::nullopt;
}

TableViewCell* TableView::cellForRow(IndexPath row) const {
  const auto found = std::find_if(shown_.begin(), shown_.end(),
                                  [&](const Shown& shown) { return shown.row == row; });
  return found == shown_.end() ? nullptr : found->cell.get();
}

// Selection

void TableView::selectRow(std::optional<IndexPath> row, ScrollPosition position) {
  measure();
  selected_ = row && isRow(*row) ? row : std::nullopt;
  updateCellStates();
  if (selected_) scrollToRow(*selected_, position);
}

void TableView::deselectRow(IndexPath row) {
  if (selected_ == row) selectRow(std::nullopt);
}

void TableView::scrollToRow(IndexPath row, ScrollPosition position) {
  measure();
  if (!isRow(row) || position == ScrollPosition::none) return;
  if (position == ScrollPosition::middle || !isInSight(row, bounds().height)) centre(row);
  // A table that is about to be shown gets its size with the next frame.
  toCentre_ = row;
  toCentreBy_ = position;
  setNeedsDisplay();
}

void TableView::centre(IndexPath row) {
  const Rect rect = rectForRow(row);
  setContentOffset(rect.y - (bounds().height - rect.height) / 2);
}

bool TableView::isInSight(IndexPath row, double height) const {
  const Section& section = sections_[static_cast<std::size_t>(row.section)];
  const double top = section.rowTop(row.row);
  return top - section.headerHeight >= contentOffset() - 0.5 &&
         top + section.rowHeight <= contentOffset() + height + 0.5;
}

void TableView::scrollRectToVisible(const Rect& rect) {
  toCentre_ = std::nullopt;
  ScrollView::scrollRectToVisible(rect);
}

void TableView::chooseRow(IndexPath row) {
  measure();
  if (!isRow(row)) return;
  const std::optional<IndexPath> before = std::exchange(selected_, row);
  updateCellStates();
  const Weak<TableView> self = this;
  mark(row, TableViewSource::Mark::none);
  if (self && before && before != row && source_) source_->didDeselectRowAt(*this, *before);
  if (self && source_) source_->didSelectRowAt(*this, row);
}

void TableView::setFocusedRow(std::optional<IndexPath> row) {
  focused_ = row;
  updateCellStates();
  if (!row) return;
  Rect rect = rectForRow(*row);
  // A header that floats must not hide it.
  const double header = sections_[static_cast<std::size_t>(row->section)].headerHeight;
  rect.y -= header;
  rect.height += header;
  scrollRectToVisible(rect);
}

void TableView::moveFocus(int rows) {
  measure();
  const int count = totalRows();
  if (count == 0) return;
  const std::optional<IndexPath> from = focused_ ? focused_ : selected_;
  const int start = from ? flatIndex(*from) : rows > 0 ? -1 : count;
  setFocusedRow(rowOfFlatIndex(std::clamp(start + rows, 0, count - 1)));
}

void TableView::focusRow(IndexPath row) {
  measure();
  if (!isRow(row)) return;
  setFocusedRow(row);
  if (source_) source_->didFocusRowAt(*this, row);
}

bool TableView::mark(IndexPath row, TableViewSource::Mark how) {
  const Weak<TableView> self = this;
  const bool isMarked = source_ && source_->didMarkRowAt(*this, row, how);
  if (self) updateCellStates();
  return isMarked;
}

bool TableView::keyPressed(const KeyEvent& event) {
  if (totalRows() == 0) return false;
  const bool isAll = event.modifiers == Modifiers::control && event.key == Key::character &&
                     (event.text == "a" || event.text == "A");
  if (isAll) return mark(rowOfFlatIndex(0).value(), TableViewSource::Mark::all);
  const bool moves = event.key == Key::up || event.key == Key::down || event.key == Key::pageUp ||
                     event.key == Key::pageDown || event.key == Key::home || event.key == Key::end;
  if (event.modifiers == Modifiers::shift && moves) {
    if (!movesFocus(event.key)) return false;
    if (focused_) mark(*focused_, TableViewSource::Mark::extend);
    return true;
  }
  if (event.modifiers != Modifiers::none) return false;
  if (moves) {
    if (!movesFocus(event.key)) return false;
    if (focused_ && source_) source_->didFocusRowAt(*this, *focused_);
    return true;
  }
  if ((event.key != Key::returnKey && event.key != Key::space) || !focused_) return false;
  chooseRow(*focused_);
  return true;
}

bool TableView::movesFocus(Key key) {
  const int page = std::max(1, static_cast<int>(bounds().height / sections_.front().rowHeight) - 1);
  switch (key) {
    case Key::up:
      moveFocus(-1);
      return true;
    case Key::down:
      moveFocus(1);
      return true;
    case Key::pageUp:
      moveFocus(-page);
      return true;
    case Key::pageDown:
      moveFocus(page);
      return true;
    case Key::home:
      moveFocus(-totalRows());
      return true;
    case Key::end:
      moveFocus(totalRows());
      return true;
    default:
      return false;
  }
}

void TableView::firstResponderChanged() {
  if (!isFirstResponder()) setFocusedRow(std::nullopt);
}

bool TableView::isOnHeader(Point place) const {
  return std::any_of(headers_.begin(), headers_.end(),
                     [&](const Header& header) { return header.view->frame().contains(place); });
}

void TableView::touchBegan(const Touch& touch) {
  hasMarked_ = false;
  ScrollView::touchBegan(touch);
  if (touch.kind != Touch::Kind::finger || !pressed_) return;
  longPress_ = foundation::Timer(longPressTime, foundation::Timer::Repeat::once,
                                 [this, row = *pressed_] { rested(row); });
}

void TableView::rested(IndexPath row) {
  const Weak<TableView> self = this;
  const bool isMarked = mark(row, TableViewSource::Mark::toggle);
  if (self) hasMarked_ = isMarked;
}

void TableView::pressed(const std::optional<Point>& place) {
  longPress_.invalidate();
  pressed_ = place && !isOnHeader(*place) ? rowAt(place->y + contentOffset()) : std::nullopt;
  updateCellStates();
}

void TableView::tapped(const Touch& touch) {
  const Point place = touch.locationIn(*this);
  const std::optional<IndexPath> row = rowAt(place.y + contentOffset());
  if (!row || isOnHeader(place) || hasMarked_) return;
  focused_ = std::nullopt;
  const bool toggles =
      has(touch.modifiers, Modifiers::control) || has(touch.modifiers, Modifiers::command);
  const Weak<TableView> self = this;
  if (has(touch.modifiers, Modifiers::shift) && mark(*row, TableViewSource::Mark::extend)) return;
  if (!self || (toggles && mark(*row, TableViewSource::Mark::toggle)) || !self) return;
  chooseRow(*row);
}

double TableView::wheelStep() const {
  // Three rows, as lists commonly do, but never more than what is in sight.
  return sections_.empty() ? ScrollView::wheelStep()
                           : std::min(3 * sections_.front().rowHeight, bounds().height * 0.75);
}

void TableView::updateCellStates() {
  for (const Shown& shown : shown_) {
    shown.cell->setSelected(selected_ == shown.row);
    shown.cell->setHighlighted(pressed_ == shown.row);
    shown.cell->setFocused(focused_ == shown.row);
    shown.cell->setMarked(source_ && isRow(shown.row) && source_->isRowMarked(*this, shown.row));
  }
}

// Display

void TableView::draw(const Rect& rect) {
  measure();
  if (const auto row = std::exchange(toCentre_, std::nullopt); row && isRow(*row))
    if (toCentreBy_ == ScrollPosition::middle || !isInSight(*row, bounds().height)) centre(*row);
  ScrollView::draw(rect);
  rowViews_.setFrame(bounds());
  headerViews_.setFrame(bounds());
  showRows();
  showHeaders();
}

void TableView::retire(Shown& shown) {
  shown.cell->removeFromSuperview();
  spare_.push_back(std::move(shown.cell));
}

void TableView::showRows() {
  const double top = contentOffset(), bottom = top + bounds().height;
  for (Shown& shown : shown_) {
    const Rect place = rectForRow(shown.row);
    if (!isRow(shown.row) || place.maxY() <= top || place.y >= bottom) retire(shown);
  }
  std::erase_if(shown_, [](const Shown& shown) { return !shown.cell; });

  for (int i = 0; i < numberOfSections() && source_; ++i) {
    const Section& section = sections_[static_cast<std::size_t>(i)];
    const int first = static_cast<int>(std::floor((top - section.rowTop(0)) / section.rowHeight));
    for (int row = std::max(0, first); row < section.rows && section.rowTop(row) < bottom; ++row) {
      const IndexPath path{i, row};
      if (cellForRow(path)) continue;
      const TableViewCell* const filled = &source_->cellForRowAt(*this, path);
      const auto found = std::find_if(spare_.begin(), spare_.end(),
                                      [&](const auto& cell) { return cell.get() == filled; });
      if (found == spare_.end()) continue;
      std::unique_ptr<TableViewCell> cell = std::move(*found);
      spare_.erase(found);
      rowViews_.addSubview(*cell);
      shown_.push_back({path, std::move(cell)});
    }
  }
  for (const Shown& shown : shown_) shown.cell->setFrame(rectForRow(shown.row).translated(0, -top));
  updateCellStates();
}

std::unique_ptr<View> TableView::makeHeader(int section) {
  if (std::unique_ptr<View> own = source_->viewForHeaderInSection(*this, section)) return own;
  auto label = std::make_unique<Label>();
  label->setText("  " + source_->titleForHeaderInSection(*this, section));
  label->setFont(headerFont_);
  label->setTextColor(headerText_);
  label->setBackgroundColor(headerBackground_);
  return label;
}

void TableView::showHeaders() {
  const double top = contentOffset();
  for (int i = 0; i < numberOfSections() && source_; ++i) {
    const Section& section = sections_[static_cast<std::size_t>(i)];
    auto header = std::find_if(headers_.begin(), headers_.end(),
                               [i](const Header& known) { return known.section == i; });
    const bool isSeen =
        section.headerHeight > 0 && section.top < top + bounds().height && section.bottom() > top;
    if (!isSeen) {
      if (header != headers_.end()) headers_.erase(header);
      continue;
    }
    if (header == headers_.end()) {
      headers_.push_back({i, makeHeader(i)});
      header = std::prev(headers_.end());
      headerViews_.addSubview(*header->view);
    }
    // It floats at the top, and leaves with the last row of its section.
    const double y = std::min(std::max(section.top, top), section.bottom() - section.headerHeight);
    header->view->setFrame({0, y - top, bounds().width, section.headerHeight});
  }
  std::erase_if(headers_, [this](const Header& h) { return h.section >= numberOfSections(); });
}

void TableView::setHeaderStyle(Color background, Color text, const Font& font) {
  headerBackground_ = background;
  headerText_ = text;
  headerFont_ = font;
  headers_.clear();
  setNeedsDisplay();
}

}  // namespace toolkit
